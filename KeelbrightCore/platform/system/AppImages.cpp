#include "KeelbrightCore/platform/system/AppImages.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// An ELF program with the mark of either kind of AppImage in the bytes that ELF leaves free.
bool isAppImage(const FileURL& file, const FileManager& files)
{
    constexpr qsizetype markPlace = 8;
    const QByteArray head = files.beginning(file, markPlace + 3).value_or(QByteArray());
    const QByteArray mark = head.mid(markPlace);
    return head.startsWith("\x7F"
                           "ELF") &&
           (mark == "AI\x01" || mark == "AI\x02");
}

} // namespace

QList<AppImage> appImages(const FileManager& files)
{
    QList<AppImage> found;
    QSet<FileURL> searched; // one folder may be a link to another
    for (const FileURL& folder : MachinePlaces(files).appImageFolders()) {
        const FileURL place = files.resolvingSymlinks(folder);
        if (searched.contains(place))
            continue;
        searched.insert(place);
        const auto entries = files.contentsOfDirectory(folder, DirectoryEnumerator::Option::skipsHiddenFiles);
        for (const DirectoryEntry& entry : entries.value_or(QList<DirectoryEntry>())) {
            const QByteArrayView extension = pathExtensionOf(entry.url.nativePath());
            if (entry.type != EntryType::regularFile ||
                extension.compare("AppImage", Qt::CaseInsensitive) != 0 || !isAppImage(entry.url, files))
                continue;
            AppImage image = appImageNamed(entry.url);
            image.place = place.appendingNative(entry.url.nativeLastPathComponent());
            found.append(std::move(image));
        }
    }
    return found;
}

const AppImage* imageOf(const DesktopApplication& application, const QList<AppImage>& images,
                        const FileManager& files)
{
    const QString program = images.isEmpty() ? QString() : application.entry.program();
    if (!program.startsWith(u'/'))
        return nullptr;
    const FileURL place = files.resolvingSymlinks(files.systemLocation(program));
    const auto image = std::ranges::find(images, place, &AppImage::place);
    return image == images.end() ? nullptr : &*image;
}

AppImage appImageNamed(const FileURL& file)
{
    // Programs that take AppImages into the menu add a digest of the file to its name.
    static const QRegularExpression digest(u"_[0-9a-f]{32}$"_s);
    static const QRegularExpression machine(
        u"[-_.](x86_64|x86-64|x64|amd64|i[36]86|x86|aarch64|arm64|armhf|linux)$"_s,
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression number(u"^(.+?)[-_ ]v?(\\d+(?:\\.\\d+)+[^ ]*)$"_s);
    QString name = file.lastPathComponent();
    name.chop(file.pathExtension().size() + 1);
    name.remove(digest);
    for (QRegularExpressionMatch match = machine.match(name); match.hasMatch(); match = machine.match(name))
        name.truncate(match.capturedStart());
    QString version;
    if (const QRegularExpressionMatch match = number.match(name); match.hasMatch()) {
        version = match.captured(2);
        name = match.captured(1);
    }
    return {.file = file, .name = name.replace(u'_', u' '), .version = version};
}

} // namespace keelbright
