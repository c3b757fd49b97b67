#pragma once

#include "KeelbrightCore/backup/BackupJob.h"
#include "KeelbrightCore/backup/BackupSource.h"

#include <QString>

namespace keelbright {

class CopyDestination;
class FileManager;
class BackupTask;

/// The body of one run: creates the folders on the destination, estimates, copies source by
/// source, writes the manifest and the report.
namespace BackupRunner {

/// Does the whole run on the calling background thread and ends it by setting the engine's
/// `isRunning` to false on the main thread. Never fails; where the engine goes meanwhile it
/// returns before the next item.
void run(const BackupJob& job, BackupTask& task);

/// Mirrors one source into "Personal Files" of `latest`, which `destination` is anchored at.
/// Problems become lines of the engine's progress. Returns when all is done, when the run is
/// cancelled or when the engine has gone.
void copySource(const BackupSource& source, const FileURL& latest, CopyDestination& destination,
                FileManager& fileManager, BackupTask& task);

/// Removes every character but letters, digits, hyphens, underscores and spaces.
[[nodiscard]] QString sanitize(const QString& name);

} // namespace BackupRunner
} // namespace keelbright
