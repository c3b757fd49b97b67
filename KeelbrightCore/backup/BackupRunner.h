#pragma once

#include "KeelbrightCore/backup/BackupJob.h"
#include "KeelbrightCore/backup/BackupSource.h"
#include "KeelbrightCore/platform/system/Clock.h"

#include <QString>

namespace keelbright {

class BackupTask;
class CopyDestination;
class FileManager;

/// The body of one run: creates the folders on the destination, estimates, copies source by
/// source, writes the manifest and the report.
namespace BackupRunner {

/// Does the whole run on the calling background thread and ends it by setting the engine's
/// `isRunning` to false on the main thread. Never fails. When the program quits, it returns without
/// touching the engine again. `clock` gives the start and the end of the report; where it goes back
/// meanwhile, the run ends at its start.
void run(const BackupJob& job, BackupTask& task, const Clock& clock = systemClock);

/// Mirrors one source into "Personal Files" of `latest`, which `destination` is anchored at.
/// Failures become error lines of the engine's progress. Returns when all items have been reported, or
/// before the next item once the run is cancelled.
void copySource(const BackupSource& source, const FileURL& latest, CopyDestination& destination,
                FileManager& fileManager, BackupTask& task);

/// Removes every character but letters, digits, hyphens, underscores and spaces.
[[nodiscard]] QString sanitize(const QString& name);

} // namespace BackupRunner
} // namespace keelbright
