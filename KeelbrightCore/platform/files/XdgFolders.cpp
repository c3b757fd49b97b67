#include "KeelbrightCore/platform/files/XdgFolders.h"

#include "KeelbrightCore/platform/files/FileManager.h"

namespace keelbright {

namespace {

FileURL baseFolder(const FileManager& files, const char* variable, const char* belowHome)
{
    const QByteArray folder = qgetenv(variable);
    // The base directory specification asks to ignore a relative path.
    return folder.startsWith('/') ? FileURL::fromNativePath(folder)
                                  : files.homeDirectory().appendingNative(belowHome);
}

} // namespace

FileURL XdgFolders::configuration(const FileManager& files)
{
    return baseFolder(files, "XDG_CONFIG_HOME", ".config");
}

FileURL XdgFolders::data(const FileManager& files)
{
    return baseFolder(files, "XDG_DATA_HOME", ".local/share");
}

FileURL XdgFolders::caches(const FileManager& files)
{
    return baseFolder(files, "XDG_CACHE_HOME", ".cache");
}

FileURL XdgFolders::state(const FileManager& files)
{
    return baseFolder(files, "XDG_STATE_HOME", ".local/state");
}

QList<FileURL> XdgFolders::dataFolders(const FileManager& files)
{
    const FileURL own = files.applicationSupportDirectory();
    QList<FileURL> folders{own};
    const auto add = [&folders](const FileURL& folder) {
        if (!folders.contains(folder))
            folders.append(folder);
    };
    QByteArray system = qgetenv("XDG_DATA_DIRS");
    if (system.isEmpty())
        system = "/usr/local/share:/usr/share";
    for (const QByteArray& folder : system.split(':')) {
        // The base directory specification asks to ignore a relative path.
        if (folder.startsWith('/'))
            add(files.systemLocation(QString::fromUtf8(folder)));
    }
    // A session that was started without their profiles does not name them.
    add(own.appendingNative("flatpak/exports/share"));
    add(files.systemLocation(QStringLiteral("/var/lib/flatpak/exports/share")));
    add(files.systemLocation(QStringLiteral("/var/lib/snapd/desktop")));
    return folders;
}

} // namespace keelbright
