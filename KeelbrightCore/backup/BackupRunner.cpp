#include "KeelbrightCore/backup/BackupRunner.h"

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/BackupReportWriter.h"
#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/backup/DeviceFolder.h"
#include "KeelbrightCore/backup/ErrorLine.h"
#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/backup/ManifestGenerator.h"
#include "KeelbrightCore/backup/SourceCopy.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/FolderPlace.h"
#include "KeelbrightCore/platform/files/OutOfMemory.h"
#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QJsonDocument>
#include <algorithm>

namespace keelbright::BackupRunner {

namespace {

/// The places of one run on the destination.
struct RunFolders
{
    FileURL latest;
    FileURL reports;
    std::unique_ptr<CopyDestination> mirror;        ///< anchored at `latest`
    std::unique_ptr<CopyDestination> reportsFolder; ///< anchored at `reports`
};

/// A drive that is away can leave an empty folder in its place, and copies there would fill the drive below.
/// It may have gone since the checks.
std::expected<void, FileError> checkDrive(const BackupJob& job)
{
    const FolderPlace place = placeOf(job.destination.url);
    if (place.isFolder && lacksItsDrive(place, job.driveSeenAt))
        return failure(FileError::Operation::opened, job.destination.url, FileError::Reason::destinationGone);
    return {};
}

std::expected<RunFolders, FileError> createFolders(const BackupJob& job, FileManager& fileManager)
{
    if (const auto drive = checkDrive(job); !drive)
        return std::unexpected(drive.error());
    const QByteArray device = DeviceFolder::ofThisMachine();
    auto mirror = fileManager.openCopyDestination(job.destination.url, device + "/Latest");
    if (!mirror)
        return std::unexpected(mirror.error());
    auto reports = fileManager.openCopyDestination(job.destination.url, device + "/Reports");
    if (!reports)
        return std::unexpected(reports.error());
    const FileURL deviceFolder = job.destination.url.appendingNative(device);
    return RunFolders{deviceFolder.appending(QStringLiteral("Latest")),
                      deviceFolder.appending(QStringLiteral("Reports")), std::move(*mirror),
                      std::move(*reports)};
}

/// Makes a change that nothing may keep from the engine, not even a lack of memory.
template <typename Change> void hop(BackupTask& task, const Change& change)
{
    task.hop(waitingForMemory([&] { return BackupTask::Change(change); }));
}

void appendError(const QString& line, BackupTask& task)
{
    qCDebug(backupLog).noquote() << "error:" << line;
    hop(task, [line](BackupEngine& engine) { engine.appendError(line); });
}

void appendError(const QString& what, const FileError& error, BackupTask& task)
{
    appendError(waitingForMemory([&] { return errorLine(what, error); }), task);
}

void reportEstimate(const BackupJob& job, const CopyDestination& mirror, BackupTask& task)
try {
    const auto isOwn = [&mirror](const DirectoryEnumerator& folder) { return mirror.isOwnFolder(folder); };
    const auto scan = FileScanner::scan(job.sources, FileScanner::Sizes::leftOut, task.cancellation(), isOwn);
    qCDebug(backupLog) << "estimate:" << scan.fileCount << "files";
    hop(task, [count = scan.fileCount](BackupEngine& engine) { engine.setTotalFilesEstimate(count); });
} catch (const std::bad_alloc&) {
    qCDebug(backupLog) << "not enough memory for the estimate";
}

void copySources(const BackupJob& job, const RunFolders& folders, FileManager& fileManager, BackupTask& task)
{
    for (const BackupSource& source : job.sources) {
        if (!source.isEnabled)
            continue;
        if (task.cancellation().isCancelled())
            break;
        copySource(source, folders.latest, *folders.mirror, fileManager, task);
    }
}

/// Writes the manifest and returns its path for the report.
QString writeManifest(const BackupJob& job, const RunFolders& folders, BackupTask& task)
{
    const QByteArray name = QByteArrayLiteral("recovery-manifest.json");
    const auto written = orOutOfMemory(FileError::Operation::written, name, [&] {
        const QJsonDocument document(ManifestGenerator::generate(job).toJson());
        // Not by its path, which another drive may have taken since the start.
        return folders.mirror->writeAtomically(name, document.toJson(QJsonDocument::Indented));
    });
    if (written)
        return waitingForMemory([&] { return folders.latest.appendingNative(name).path(); });
    appendError(QStringLiteral("Manifest write failed"), written.error(), task);
    return QStringLiteral("Failed");
}

/// What is reported as copied has to be on the drive, not only in the machine's memory.
void flush(const BackupJob& job, CopyDestination& mirror, BackupTask& task)
{
    const auto flushed = orOutOfMemory(FileError::Operation::flushed, job.destination.url.nativePath(),
                                       [&mirror] { return mirror.flush(); });
    if (!flushed)
        appendError(
            waitingForMemory([&] { return skipLine(job.destination.displayName(), flushed.error()); }), task);
    else
        qCDebug(backupLog) << "drive flushed";
}

/// When a run began and ended.
struct RunTimes
{
    QDateTime start;
    QDateTime end;
};

BackupReport makeReport(const BackupJob& job, const RunTimes& times, const BackupProgress& progress,
                        const FileURL& latest, const QString& manifestPath)
{
    return {.id = QUuid::createUuid(),
            .jobId = job.id,
            .startedAt = times.start,
            .completedAt = times.end,
            .sourcePaths = job.sourcePaths(),
            .destinationPath = job.destination.path(),
            .personalFilesPath = latest.appending(QStringLiteral("Personal Files")).path(),
            .filesCopied = progress.filesCopied,
            .filesSkipped = progress.filesSkipped,
            .bytesCopied = progress.bytesCopied,
            .errors = progress.errors,
            .manifestPath = manifestPath};
}

std::expected<void, FileError> writeReport(const BackupReport& report, const RunFolders& folders)
{
    if (!folders.mirror->isInPlace())
        return failure(FileError::Operation::written, folders.reports, FileError::Reason::destinationGone);
    const auto written = BackupReportWriter::write(report, folders.reports, *folders.reportsFolder);
    if (!written)
        return std::unexpected(written.error());
    return {};
}

/// The last steps: manifest, flush, report files, and the end of the run.
void conclude(const BackupJob& job, const QDateTime& startedAt, const Clock& clock, const RunFolders& folders,
              BackupTask& task)
{
    const QString manifestPath = writeManifest(job, folders, task);
    flush(job, *folders.mirror, task);
    BackupProgress progress;
    hop(task, [&progress](BackupEngine& engine) { progress = engine.progress(); });
    if (task.cancellation().isQuitting())
        return;
    // A clock that was set back meanwhile must not make the run end before its start.
    const RunTimes times{startedAt, std::max(startedAt, clock())};
    const BackupReport report =
        waitingForMemory([&] { return makeReport(job, times, progress, folders.latest, manifestPath); });
    const auto written = orOutOfMemory(FileError::Operation::written, folders.reports.nativePath(),
                                       [&] { return writeReport(report, folders); });
    if (!written)
        appendError(QStringLiteral("Report write failed"), written.error(), task);
    qCDebug(backupLog) << "run ended:" << report.filesCopied << "copied," << report.filesSkipped << "skipped,"
                       << report.errors.size() << "errors";
    const auto end = [report](BackupEngine& engine) {
        engine.setLastReport(report);
        engine.setIsRunning(false);
    };
    // The report lies on the drive: the program knows it, too, though it quits.
    task.hopLast(waitingForMemory([&] { return BackupTask::Change(end); }));
}

void failToStart(const FileError& error, BackupTask& task)
{
    const QString text =
        waitingForMemory([&] { return errorLine(QStringLiteral("Could not create backup folders"), error); });
    qCDebug(backupLog).noquote() << "run could not start:" << text;
    hop(task, [text](BackupEngine& engine) { engine.setLastError(text); });
    hop(task, [](BackupEngine& engine) { engine.setIsRunning(false); });
}

} // namespace

void run(const BackupJob& job, BackupTask& task, const Clock& clock)
{
    FileManager& fileManager = FileManager::defaultManager();
    const QDateTime startedAt = clock();
    qCDebug(backupLog).noquote() << "run started:" << job.sources.size() << "sources to"
                                 << job.destination.path();
    const auto folders = orOutOfMemory(FileError::Operation::created, job.destination.url.nativePath(),
                                       [&] { return createFolders(job, fileManager); });
    if (!folders) {
        failToStart(folders.error(), task);
        return;
    }
    reportEstimate(job, *folders->mirror, task);
    copySources(job, *folders, fileManager, task);
    if (task.cancellation().isQuitting()) {
        qCDebug(backupLog) << "run given up: the program quits";
        return;
    }
    if (task.cancellation().isCancelled())
        qCDebug(backupLog) << "run cancelled";
    conclude(job, startedAt, clock, *folders, task);
}

void copySource(const BackupSource& source, const FileURL& latest, CopyDestination& destination,
                FileManager& fileManager, BackupTask& task)
try {
    const QByteArray relativeRoot = "Personal Files/" + source.url.nativeLastPathComponent();
    const FileURL root = latest.appendingNative(relativeRoot);
    using Option = DirectoryEnumerator::Option;
    const auto items = fileManager.enumerator(source.url, Option::skipsHiddenFiles | Option::followsRootLink);
    const auto entered = destination.enterFolder(relativeRoot, items ? items->get() : nullptr);
    if (!entered) {
        appendError(QStringLiteral("Cannot create ") + root.path(), entered.error(), task);
        return;
    }
    if (!items) {
        destination.leaveFolders();
        appendError(QStringLiteral("Cannot enumerate: ") + source.url.path(), task);
        return;
    }
    qCDebug(backupLog).noquote() << "source entered:" << source.url.path();
    SourceCopy(**items, destination, root, relativeRoot, task).run();
} catch (const std::bad_alloc&) {
    // Before the first item: memory that runs out later is the error of an item.
    task.wait();
    waitingForMemory([&destination] { destination.leaveFolders(); });
    appendError(waitingForMemory([&] { return QStringLiteral("Cannot enumerate: ") + source.url.path(); }),
                task);
}

QString sanitize(const QString& name)
{
    QString kept;
    for (const char32_t character : name.toUcs4()) {
        const bool isAlphanumeric = QChar::isLetterOrNumber(character) || QChar::isMark(character);
        if (isAlphanumeric || character == U'-' || character == U'_' || character == U' ')
            kept += QStringView(QChar::fromUcs4(character));
    }
    return kept;
}

} // namespace keelbright::BackupRunner
