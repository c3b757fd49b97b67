#include "KeelbrightCore/health/HealthScoreService.h"

#include "KeelbrightCore/health/HealthScoring.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/text/ByteSum.h"
#include "KeelbrightCore/storage/FolderSizeService.h"

#include <functional>

namespace keelbright::HealthScoreService {

namespace {

/// Narrower than the junk scanner on purpose: the score has to stay cheap.
qint64 estimateJunk(const FileManager& fm)
{
    const MachinePlaces places(fm);
    QList<FileURL> folders;
    QList<qint64> sizesOfFiles;
    for (const FileURL& place : places.junkEstimate()) {
        const FileExistence existence = fm.fileExists(place);
        if (existence.isDirectory)
            folders.append(place);
        else if (existence.exists && !places.isMac())
            sizesOfFiles.append(fm.fileSize(place).value_or(0));
    }
    return sumOfBytes(FolderSizeService::recursiveSizes(folders, fm) + sizesOfFiles, std::identity());
}

} // namespace

QFuture<HealthScore> compute(const std::optional<QDateTime>& lastBackupTime, Clock clock)
{
    return TaskPools::runApart(TaskPools::Priority::utility, [lastBackupTime, clock = std::move(clock)] {
        const FileManager& fm = FileManager::defaultManager();
        const FileSystemCapacity disk =
            fm.fileSystemCapacity(fm.homeDirectory()).value_or(FileSystemCapacity());
        return HealthScoring::score({.diskTotalBytes = disk.totalBytes.value_or(0),
                                     .diskFreeBytes = disk.freeBytes.value_or(0),
                                     .junkBytes = estimateJunk(fm),
                                     .lastBackup = lastBackupTime},
                                    clock());
    });
}

} // namespace keelbright::HealthScoreService
