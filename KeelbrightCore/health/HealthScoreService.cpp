#include "KeelbrightCore/health/HealthScoreService.h"

#include "KeelbrightCore/health/HealthScoring.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/text/ByteSum.h"
#include "KeelbrightCore/storage/FolderSizeService.h"

#include <functional>

namespace keelbright::HealthScoreService {

using namespace Qt::StringLiterals;

namespace {

/// Narrower than the junk scanner on purpose: the score has to stay cheap.
qint64 estimateJunk(const FileManager& fm)
{
    const QStringList folders{
        u"Library/Caches"_s,
        u"Library/Logs"_s,
        u"Library/Developer/Xcode/DerivedData"_s,
        u"Library/Developer/Xcode/Archives"_s,
    };
    QList<FileURL> existing;
    for (const QString& path : folders) {
        const FileURL folder = fm.homeDirectory().appending(path);
        if (fm.fileExists(folder).exists)
            existing.append(folder);
    }
    return sumOfBytes(FolderSizeService::recursiveSizes(existing, fm), std::identity());
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
