#include "Keelbright/screens/storage/StorageFileTypes.h"

#include <QUuid>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

FolderSizeNode file(const QString& name, qint64 bytes)
{
    return {.id = QUuid::createUuid(), .name = name, .url = {}, .totalBytes = bytes, .isDirectory = false};
}

FolderSizeNode folder(const QString& name, qint64 bytes)
{
    return {.id = QUuid::createUuid(), .name = name, .url = {}, .totalBytes = bytes, .isDirectory = true};
}

void expectLabel(const QString& extensions, const QString& label, Role color)
{
    for (const QString& ext : extensions.split(u' '))
        EXPECT_EQ(extLabelColor(ext), (FileTypeLabel{label, color})) << ext.toStdString();
}

/// Icons of `extIcon` and `fileIcon`, where empty lists are skipped.
void expectIcons(const QString& icon, const QString& ofExt, const QString& ofFile)
{
    for (const QString& ext : ofExt.split(u' ', Qt::SkipEmptyParts))
        EXPECT_EQ(extIcon(ext), icon) << ext.toStdString();
    for (const QString& ext : ofFile.split(u' ', Qt::SkipEmptyParts))
        EXPECT_EQ(fileIcon(u"name."_s + ext), icon) << ext.toStdString();
}

} // namespace

TEST(StorageFileTypes, eachKindHasItsLabelAndColor)
{
    expectLabel(u"jpg jpeg png heic gif webp tiff raw cr2"_s, u"Images"_s, Role::accent);
    expectLabel(u"mp4 mov avi mkv m4v"_s, u"Video"_s, Role::purple);
    expectLabel(u"mp3 aac wav flac m4a aiff"_s, u"Audio"_s, Role::pink);
    expectLabel(u"pdf doc docx xls xlsx ppt pptx pages key numbers txt md"_s, u"Documents"_s, Role::green);
    expectLabel(u"zip tar gz rar 7z dmg pkg"_s, u"Archives"_s, Role::orange);
    expectLabel(u"swift py js ts go rb rs java cpp c h"_s, u"Code"_s, Role::teal);
    for (const QString& ext : {u""_s, u"iso"_s, u"tif"_s, u"hpp"_s, u"JPG"_s})
        EXPECT_EQ(extLabelColor(ext), (FileTypeLabel{u"Other"_s, Role::secondaryText})) << ext.toStdString();
}

TEST(StorageFileTypes, theTwoTablesOfIconsDiffer)
{
    expectIcons(u"photo.fill"_s, u"jpg jpeg png heic gif webp"_s, u"jpg jpeg png heic gif webp"_s);
    expectIcons(u"film.fill"_s, u"mp4 mov avi mkv"_s, u"mp4 mov avi mkv"_s);
    expectIcons(u"music.note"_s, u"mp3 aac wav flac m4a"_s, u"mp3 m4a flac wav"_s);
    expectIcons(u"doc.richtext.fill"_s, u"pdf"_s, u"pdf"_s);
    expectIcons(u"archivebox.fill"_s, u"zip tar gz rar dmg pkg"_s, u"zip tar gz rar"_s);
    expectIcons(u"chevron.left.forwardslash.chevron.right"_s, u"swift py js ts go"_s,
                u"swift py js ts rb go rs"_s);
    expectIcons(u"doc.fill"_s, u"rb rs tiff m4v 7z txt"_s, u"aac dmg pkg tiff m4v 7z txt"_s);
    EXPECT_EQ(extIcon({}), u"doc.fill"_s);
    EXPECT_EQ(fileIcon(u"README"_s), u"doc.fill"_s);
}

TEST(StorageFileTypes, theIconOfAFileDoesNotDependOnTheCaseOfItsExtension)
{
    EXPECT_EQ(fileIcon(u"Holiday.JPG"_s), u"photo.fill"_s);
    // A name that begins with its only dot has no extension.
    EXPECT_EQ(fileIcon(u".pdf"_s), u"doc.fill"_s);
}

TEST(StorageFileTypes, theBreakdownAddsUpEachKindLargestFirst)
{
    EXPECT_EQ(typeBreakdown({file(u"a.mov"_s, 50), folder(u"b.png"_s, 200), file(u"c.PNG"_s, 30),
                             file(u"d.jpg"_s, 40), file(u"e"_s, 5), folder(u"f"_s, 1)}),
              (QList<FileTypeShare>{{u"Folders"_s, 201, Role::accent},
                                    {u"Images"_s, 70, Role::accent},
                                    {u"Video"_s, 50, Role::purple},
                                    {u"Other"_s, 5, Role::secondaryText}}));
}

TEST(StorageFileTypes, anEmptyFileIsAKindOfZeroBytes)
{
    EXPECT_EQ(typeBreakdown({file(u"a.zip"_s, 0)}), (QList<FileTypeShare>{{u"Archives"_s, 0, Role::orange}}));
    EXPECT_TRUE(typeBreakdown({}).isEmpty());
}

TEST(StorageFileTypes, theBreakdownStaysAtTheLargestNumber)
{
    constexpr qint64 maximum = std::numeric_limits<qint64>::max();
    EXPECT_EQ(typeBreakdown({file(u"a.zip"_s, maximum), file(u"b.zip"_s, 7)}),
              (QList<FileTypeShare>{{u"Archives"_s, maximum, Role::orange}}));
}

} // namespace keelbright::testing
