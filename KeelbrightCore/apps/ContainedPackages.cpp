#include "KeelbrightCore/apps/ContainedPackages.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"

#include <QXmlStreamReader>
#include <QtEndian>
#include <limits>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 maximumBytes = qint64{16} * 1024 * 1024;

/// The newest release comes first in the metadata of an application.
QString firstRelease(const QByteArray& metainfo)
{
    QXmlStreamReader xml(metainfo);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == "release"_L1)
            return xml.attributes().value("version"_L1).toString();
    }
    return {};
}

QString releaseIn(const FileURL& share, const QString& id, const FileManager& files)
{
    for (const QString& path : {u"metainfo/%1.metainfo.xml"_s, u"metainfo/%1.appdata.xml"_s,
                                u"appdata/%1.appdata.xml"_s, u"appdata/%1.metainfo.xml"_s}) {
        if (const auto metainfo = files.contents(share.appending(path.arg(id)), maximumBytes)) {
            if (const QString version = firstRelease(*metainfo); !version.isEmpty())
                return version;
        }
    }
    return {};
}

/// The value of a line "version: '1.2'" at the top of the file.
QString yamlVersion(const QByteArray& yaml)
{
    const QByteArray key = "version:";
    for (const QByteArray& line : yaml.split('\n')) {
        if (!line.startsWith(key))
            continue;
        QByteArray value = line.mid(key.size()).trimmed();
        const bool isQuoted = value.size() >= 2 && (value.startsWith('\'') || value.startsWith('"')) &&
                              value.endsWith(value.front());
        return QString::fromUtf8(isQuoted ? value.mid(1, value.size() - 2) : value);
    }
    return {};
}

/// A name from a file that is not trusted must stay in its folder.
bool isUsable(const QString& name)
{
    return isFileName(name.toUtf8());
}

/// The revision of the Snap that is used. Where there is none, a place at which nothing is.
FileURL currentSnap(const QString& name, const QList<FileURL>& folders, const FileManager& files)
{
    FileURL current;
    for (const FileURL& folder : folders) {
        current = folder.appending(name).appending(u"current"_s);
        if (files.fileExists(current).exists)
            break;
    }
    return current;
}

qsizetype littleEndian(QByteArrayView bytes)
{
    quint64 value = 0;
    for (qsizetype i = bytes.size() - 1; i >= 0; --i)
        value = value << 8U | static_cast<unsigned char>(bytes[i]);
    return value > quint64{std::numeric_limits<qint32>::max()} ? -1 : static_cast<qsizetype>(value);
}

} // namespace

std::optional<PackageFacts> ContainedPackages::flatpak(const DesktopApplication& application,
                                                       const FileManager& files)
{
    const QString& id = application.entry.flatpak;
    const QByteArray exports = "/exports/share";
    if (!isUsable(id) || !application.dataFolder.nativePath().endsWith(exports))
        return std::nullopt;
    const FileURL installation =
        FileURL::fromNativePath(application.dataFolder.nativePath().chopped(exports.size()));
    const FileURL active = installation.appending(u"app"_s).appending(id).appending(u"current/active"_s);
    const FileURL deploy = active.appending(u"deploy"_s);
    const bool isOwn = isUsersOwn(installation, files);
    return PackageFacts{
        .version = releaseIn(active.appending(u"files/share"_s), id, files),
        .sizeBytes = sizeInDeployData(files.contents(deploy, maximumBytes).value_or(QByteArray())),
        .installed = files.modificationDate(deploy),
        .removalCommand = (isOwn ? u"flatpak uninstall --user "_s : u"flatpak uninstall "_s) + id,
    };
}

std::optional<PackageFacts> ContainedPackages::snap(const DesktopApplication& application,
                                                    const FileManager& files)
{
    const QString& name = application.entry.snap;
    if (!isUsable(name))
        return std::nullopt;
    const LinuxPackages places = MachinePlaces(files).linuxPackages();
    const FileURL current = currentSnap(name, places.snaps, files);
    const QString revision = files.resolvingSymlinks(current).lastPathComponent();
    const FileURL file = places.snapFiles.appending(u"%1_%2.snap"_s.arg(name, revision));
    return PackageFacts{
        .version = yamlVersion(
            files.contents(current.appending(u"meta/snap.yaml"_s), maximumBytes).value_or(QByteArray())),
        .sizeBytes = files.fileSize(file),
        .installed = files.modificationDate(file),
        .removalCommand = u"sudo snap remove "_s + name,
    };
}

std::optional<qint64> ContainedPackages::sizeInDeployData(QByteArrayView data)
{
    // A GVariant of the type "(ssasta{sv})": the ends of the two texts and of the list of texts stand behind
    // everything else, in reverse order, and the size follows the list at the next multiple of eight. It is
    // big-endian whatever the machine is.
    constexpr qsizetype alignment = 8;
    constexpr qsizetype ends = 3;
    if (data.isEmpty() || data.size() > maximumBytes)
        return std::nullopt;
    qsizetype width = 4;
    if (data.size() <= std::numeric_limits<quint8>::max())
        width = 1;
    else if (data.size() <= std::numeric_limits<quint16>::max())
        width = 2;
    if (data.size() < ends * width)
        return std::nullopt;
    const qsizetype listEnd = littleEndian(data.sliced(data.size() - ends * width, width));
    const qsizetype place = (listEnd + alignment - 1) / alignment * alignment;
    if (listEnd < 0 || place + alignment > data.size() - ends * width)
        return std::nullopt;
    const quint64 size = qFromBigEndian<quint64>(data.data() + place);
    if (size == 0 || size > quint64{std::numeric_limits<qint64>::max()})
        return std::nullopt;
    return static_cast<qint64>(size);
}

} // namespace keelbright
