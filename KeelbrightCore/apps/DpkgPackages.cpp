#include "KeelbrightCore/apps/DpkgPackages.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// One package in the database, as far as it has been read.
struct Paragraph
{
    QByteArray package;
    QByteArray status;
    QByteArray version;
    QByteArray size; ///< in units of 1024 bytes

    [[nodiscard]] bool isInstalled() const { return status.endsWith(" installed"); }
};

void take(Paragraph& paragraph, const QByteArray& line)
{
    const qsizetype colon = line.indexOf(':');
    // A line that begins with a blank goes on with the field before it.
    if (colon <= 0 || line.startsWith(' '))
        return;
    const QByteArray key = line.left(colon);
    QByteArray value = line.mid(colon + 1).trimmed();
    if (key == "Package")
        paragraph.package = std::move(value);
    else if (key == "Status")
        paragraph.status = std::move(value);
    else if (key == "Version")
        paragraph.version = std::move(value);
    else if (key == "Installed-Size")
        paragraph.size = std::move(value);
}

/// The name of a package from that of its list: "libfoo:amd64.list" is one of several architectures.
QByteArray packageOf(const QByteArray& listName)
{
    const QByteArray name = listName.chopped(QByteArrayView(".list").size());
    return name.left(name.indexOf(':') >= 0 ? name.indexOf(':') : name.size());
}

} // namespace

DpkgPackages::DpkgPackages(const QSet<QByteArray>& paths, const FileManager& files)
{
    if (paths.isEmpty())
        return;
    readLists(paths, files);
    if (!m_packages.isEmpty())
        readStatus(files);
}

const PackageFacts* DpkgPackages::ownerOf(const QByteArray& path) const
{
    const auto owner = m_ownerOfPath.constFind(path);
    if (owner == m_ownerOfPath.constEnd())
        return nullptr;
    const auto package = m_packages.constFind(*owner);
    return package == m_packages.constEnd() ? nullptr : &*package;
}

void DpkgPackages::readLists(const QSet<QByteArray>& paths, const FileManager& files)
{
    const auto entries = files.contentsOfDirectory(MachinePlaces(files).linuxPackages().dpkgLists, {});
    for (const DirectoryEntry& entry : entries.value_or(QList<DirectoryEntry>())) {
        const QByteArray listName = entry.url.nativeLastPathComponent();
        if (!listName.endsWith(".list"))
            continue;
        const QByteArray list = files.contents(entry.url).value_or(QByteArray());
        // Few of the thousands of lists have entries of the menu.
        if (!list.contains(".desktop\n"))
            continue;
        for (const QByteArray& path : list.split('\n')) {
            if (!paths.contains(path))
                continue;
            m_ownerOfPath.insert(path, packageOf(listName));
            m_packages.insert(packageOf(listName), {.installed = files.modificationDate(entry.url)});
        }
    }
}

void DpkgPackages::readStatus(const FileManager& files)
{
    const QByteArray status =
        files.contents(MachinePlaces(files).linuxPackages().dpkgStatus).value_or(QByteArray());
    Paragraph paragraph;
    const auto end = [&] {
        const auto known = m_packages.find(paragraph.package);
        if (known != m_packages.end() && paragraph.isInstalled()) {
            constexpr qint64 unit = 1024;
            known->version = QString::fromUtf8(paragraph.version);
            if (const qint64 units = paragraph.size.toLongLong(); units > 0)
                known->sizeBytes = units * unit;
            known->removalCommand = u"sudo apt remove "_s + QString::fromUtf8(paragraph.package);
        }
        paragraph = {};
    };
    for (qsizetype start = 0; start < status.size();) {
        const qsizetype lineEnd = status.indexOf('\n', start);
        const qsizetype next = lineEnd < 0 ? status.size() : lineEnd;
        if (next == start)
            end();
        else if (status.at(start) != ' ')
            take(paragraph, status.mid(start, next - start));
        start = next + 1;
    }
    end();
    // A package whose removal has left only settings owns nothing any more.
    m_packages.removeIf([](const QHash<QByteArray, PackageFacts>::iterator& package) {
        return package->removalCommand.isEmpty();
    });
}

} // namespace keelbright
