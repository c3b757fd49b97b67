#include "KeelbrightCore/backup/BackupRunner.h"

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/BackupReportWriter.h"
#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/backup/ManifestGenerator.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/Host.h"

#include <QJsonDocument>

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

QString deviceFolderName()
{
    return sanitize(Host::localizedName().value_or(QStringLiteral("MyMac")));
}

std::expected<RunFolders, FileError> createFolders(const BackupJob& job, FileManager& fileManager)
{
    QByteArray device = "Keelbright";
    if (const QByteArray name = deviceFolderName().toUtf8(); !name.isEmpty())
        device += "/" + name;
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

/// Writes the manifest and gives its path for the report; nothing where the engine has gone.
std::optional<QString> writeManifest(const BackupJob& job, const RunFolders& folders, BackupTask& task)
{
    const QByteArray name = "recovery-manifest.json";
    const QJsonDocument document(ManifestGenerator::generate(job).toJson());
    // Never by the path, which may lead elsewhere by now.
    const auto written = folders.mirror->writeAtomically(name, document.toJson(QJsonDocument::Indented));
    if (written)
        return folders.latest.appendingNative(name).path();
    const QString line = QStringLiteral("Manifest write failed: ") + written.error().localizedDescription();
    if (!task.hop([line](BackupEngine& engine) { engine.appendError(line); }))
        return std::nullopt;
    return QStringLiteral("Failed");
}

/// A backup called complete has to be on the drive, not in the machine's memory.
bool flush(const BackupJob& job, CopyDestination& mirror, BackupTask& task)
{
    const auto flushed = mirror.flush();
    if (flushed)
        return true;
    const QString line = QStringLiteral("Skip ") + job.destination.displayName() + QStringLiteral(": ") +
                         flushed.error().localizedDescription();
    return task.hop([line](BackupEngine& engine) { engine.appendError(line); });
}

BackupReport makeReport(const BackupJob& job, const QDateTime& startedAt, const BackupProgress& progress,
                        const FileURL& latest, const QString& manifestPath)
{
    QStringList sourcePaths;
    for (const BackupSource& source : job.sources)
        sourcePaths.append(source.url.path());
    return {.id = QUuid::createUuid(),
            .jobId = job.id,
            .startedAt = startedAt,
            .completedAt = QDateTime::currentDateTimeUtc(),
            .sourcePaths = sourcePaths,
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
    if (!folders.mirror->isInPlace()) {
        return std::unexpected(FileError{FileError::Operation::written, folders.reports.lastPathComponent(),
                                         FileError::Reason::destinationGone});
    }
    const auto written = BackupReportWriter::write(report, folders.reports, *folders.reportsFolder);
    if (!written)
        return std::unexpected(written.error());
    return {};
}

/// The last steps: flush, final counters, report files, and the end of the run.
void conclude(const BackupJob& job, const QDateTime& startedAt, const RunFolders& folders,
              const QString& manifestPath, BackupTask& task)
{
    if (!flush(job, *folders.mirror, task))
        return;
    BackupProgress progress;
    if (!task.hop([&progress](BackupEngine& engine) { progress = engine.progress(); }))
        return;
    const BackupReport report = makeReport(job, startedAt, progress, folders.latest, manifestPath);
    if (const auto written = writeReport(report, folders); !written) {
        const QString line = QStringLiteral("Report write failed: ") + written.error().localizedDescription();
        if (!task.hop([line](BackupEngine& engine) { engine.appendError(line); }))
            return;
    }
    std::ignore = task.hop([report](BackupEngine& engine) {
        engine.setLastReport(report);
        engine.setIsRunning(false);
    });
}

void failToStart(const FileError& error, BackupTask& task)
{
    const QString text = QStringLiteral("Could not create backup folders: ") + error.localizedDescription();
    if (task.hop([text](BackupEngine& engine) { engine.setLastError(text); }))
        std::ignore = task.hop([](BackupEngine& engine) { engine.setIsRunning(false); });
}

} // namespace

void run(const BackupJob& job, BackupTask& task)
{
    FileManager& fileManager = FileManager::defaultManager();
    const QDateTime startedAt = QDateTime::currentDateTimeUtc();
    const auto folders = createFolders(job, fileManager);
    if (!folders) {
        failToStart(folders.error(), task);
        return;
    }

    const qint64 estimate =
        FileScanner::scan(job.sources, FileScanner::Sizes::leftOut, task.cancellation()).fileCount;
    if (!task.hop([estimate](BackupEngine& engine) { engine.setTotalFilesEstimate(estimate); }))
        return;
    for (const BackupSource& source : job.sources) {
        if (!source.isEnabled)
            continue;
        if (task.cancellation().isCancelled())
            break;
        copySource(source, folders->latest, *folders->mirror, fileManager, task);
    }
    if (task.cancellation().isQuitting())
        return;
    const auto manifestPath = writeManifest(job, *folders, task);
    if (manifestPath)
        conclude(job, startedAt, *folders, *manifestPath, task);
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
