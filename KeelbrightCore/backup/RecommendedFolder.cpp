#include "KeelbrightCore/backup/RecommendedFolder.h"

#include "KeelbrightCore/platform/files/FileManager.h"

namespace keelbright {

FileURL RecommendedFolder::url() const
{
    return place ? *place : FileManager::defaultManager().homeDirectory().appending(relativePath);
}

bool RecommendedFolder::exists() const
{
    return FileManager::defaultManager().fileExists(url()).exists;
}

BackupSource RecommendedFolder::asBackupSource() const
{
    return {QUuid::createUuid(), url(), true};
}

} // namespace keelbright
