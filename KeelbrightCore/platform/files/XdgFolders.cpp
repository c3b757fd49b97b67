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

FileURL XdgFolders::caches(const FileManager& files)
{
    return baseFolder(files, "XDG_CACHE_HOME", ".cache");
}

FileURL XdgFolders::state(const FileManager& files)
{
    return baseFolder(files, "XDG_STATE_HOME", ".local/state");
}

} // namespace keelbright
