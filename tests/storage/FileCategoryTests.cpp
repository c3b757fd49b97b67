#include "KeelbrightCore/storage/FileCategory.h"
#include "tests/support/Printing.h"

#include <QHash>
#include <gmock/gmock.h>

#include <set>
#include <string>
#include <vector>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

std::vector<std::string> extensionsOf(FileCategory category)
{
    std::vector<std::string> extensions;
    for (const ExtensionCategory& entry : fileCategoryExtensionMap()) {
        if (entry.category == category)
            extensions.emplace_back(entry.extension);
    }
    return extensions;
}

FileCategory categoryOf(const QByteArray& name)
{
    return fileCategory(FileURL::fromNativePath("/Users/mira/Downloads/" + name));
}

} // namespace

TEST(FileCategoryTests, theCategoriesComeInOrderWithTheirFoldersAndIcons)
{
    QStringList texts;
    for (const FileCategory category : allFileCategories()) {
        EXPECT_EQ(folderName(category), rawValue(category));
        texts.append(rawValue(category) + u' ' + icon(category));
    }
    EXPECT_EQ(texts, (QStringList{u"Images photo.fill"_s, u"Documents doc.fill"_s, u"Videos film.fill"_s,
                                  u"Audio music.note"_s, u"Archives archivebox.fill"_s,
                                  u"Code chevron.left.forwardslash.chevron.right"_s,
                                  u"Installers arrow.down.app.fill"_s, u"Other folder.fill"_s}));
}

TEST(FileCategoryTests, theMapHasSeventySixExtensionsAndEachOnce)
{
    std::set<std::string_view> extensions;
    for (const ExtensionCategory& entry : fileCategoryExtensionMap())
        extensions.insert(entry.extension);
    EXPECT_EQ(extensions.size(), 76);
    EXPECT_EQ(fileCategoryExtensionMap().size(), 76);
    EXPECT_THAT(extensionsOf(FileCategory::other), IsEmpty());
}

TEST(FileCategoryTests, imagesHaveTheirExtensions)
{
    EXPECT_THAT(extensionsOf(FileCategory::images),
                UnorderedElementsAre("jpg", "jpeg", "png", "gif", "heic", "heif", "webp", "bmp", "tiff",
                                     "tif", "svg", "raw", "cr2", "nef", "arw"));
}

TEST(FileCategoryTests, documentsHaveTheirExtensions)
{
    EXPECT_THAT(extensionsOf(FileCategory::documents),
                UnorderedElementsAre("pdf", "doc", "docx", "xls", "xlsx", "ppt", "pptx", "pages", "numbers",
                                     "key", "txt", "rtf", "md", "csv", "odt", "ods", "odp"));
}

TEST(FileCategoryTests, videosHaveTheirExtensions)
{
    EXPECT_THAT(extensionsOf(FileCategory::videos),
                UnorderedElementsAre("mp4", "mov", "avi", "mkv", "m4v", "wmv", "flv", "webm", "mpg", "mpeg"));
}

TEST(FileCategoryTests, audioHaveTheirExtensions)
{
    EXPECT_THAT(extensionsOf(FileCategory::audio),
                UnorderedElementsAre("mp3", "aac", "wav", "flac", "m4a", "ogg", "aiff", "wma"));
}

TEST(FileCategoryTests, archivesHaveTheirExtensions)
{
    EXPECT_THAT(extensionsOf(FileCategory::archives),
                UnorderedElementsAre("zip", "tar", "gz", "bz2", "rar", "7z", "xz"));
}

TEST(FileCategoryTests, codeHaveTheirExtensions)
{
    EXPECT_THAT(extensionsOf(FileCategory::code),
                UnorderedElementsAre("swift", "py", "js", "ts", "html", "css", "json", "xml", "sh", "rb",
                                     "go", "rs", "cpp", "c", "h", "java"));
}

TEST(FileCategoryTests, installersHaveTheirExtensions)
{
    EXPECT_THAT(extensionsOf(FileCategory::installers), UnorderedElementsAre("dmg", "pkg", "app"));
}

TEST(FileCategoryTests, everyExtensionIsFoundInAnyLetterCase)
{
    for (const ExtensionCategory& entry : fileCategoryExtensionMap()) {
        const QByteArray extension(entry.extension.data(), static_cast<qsizetype>(entry.extension.size()));
        EXPECT_EQ(categoryOf("a." + extension), entry.category) << extension.toStdString();
        EXPECT_EQ(categoryOf("A." + extension.toUpper()), entry.category) << extension.toStdString();
    }
}

TEST(FileCategoryTests, onlyTheLastExtensionCounts)
{
    EXPECT_EQ(categoryOf("a.tar.gz"), FileCategory::archives);
    EXPECT_EQ(categoryOf("photo.jpg.txt"), FileCategory::documents);
    EXPECT_EQ(categoryOf("photo.jpg.unknown"), FileCategory::other);
}

TEST(FileCategoryTests, whateverHasNoKnownExtensionIsOther)
{
    for (const char* name : {"Notes", "jpg", ".jpg", "a.", "a.jp", "a.jpgg", "a.unknownextension", "a. jpg",
                             "a.\xff\xfe", "folder.png/Notes"})
        EXPECT_EQ(categoryOf(name), FileCategory::other) << name;
}

} // namespace keelbright::testing
