#include "Keelbright/state/Workspace.h"

#include "KeelbrightCore/platform/files/FileManager.h"

namespace keelbright {

void openPersonalFiles(Workspace& workspace, const QString& path)
{
    const FileURL url = FileURL::fromPath(path);
    const bool exists = FileManager::defaultManager().fileExists(url).exists;
    workspace.open(exists ? url : url.deletingLastPathComponent());
}

} // namespace keelbright
