#include "KeelbrightCore/backup/BackupRunner.h"

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/BackupReportWriter.h"
#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/backup/ManifestGenerator.h"
#include "KeelbrightCore/backup/RunLink.h"
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
std::optional<QString> writeManifest(const BackupJob& job, const RunFolders& folders, RunLink& engine)
{
    const QByteArray name = "recovery-manifest.json";
    const QJsonDocument document(ManifestGenerator::generate(job).toJson());
    // Never by the path, which may lead elsewhere by now.
    const auto written = folders.mirror->writeAtomically(name, document.toJson(QJsonDocument::Indented));
    if (written)
        return folders.latest.appendingNative(name).path();
    const QString line = QStringLiteral("Manifest write failed: ") + written.error().localizedDescription();
    if (!engine.hop([line](BackupEngine& target) { target.appendError(line); }))
        return std::nullopt;
    return QStringLiteral("Failed");
}

/// A backup called complete has to be on the drive, not in the machine's memory.
bool flush(const BackupJob& job, CopyDestination& mirror, RunLink& engine)
{
    const auto flushed = mirror.flush();
    if (flushed)
        return true;
    const QString line = QStringLiteral("Skip ") + job.destination.displayName() + QStringLiteral(": ") +
                         flushed.error().localizedDescription();
    return engine.hop([line](BackupEngine& target) { target.appendError(line); });
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
              const QString& manifestPath, RunLink& engine)
{
    if (!flush(job, *folders.mirror, engine))
        return;
    BackupProgress progress;
    if (!engine.hop([&progress](BackupEngine& target) { progress = target.progress(); }))
        return;
    const BackupReport report = makeReport(job, startedAt, progress, folders.latest, manifestPath);
    if (const auto written = writeReport(report, folders); !written) {
        const QString line = QStringLiteral("Report write failed: ") + written.error().localizedDescription();
        if (!engine.hop([line](BackupEngine& target) { target.appendError(line); }))
            return;
    }
    std::ignore = engine.hop([report](BackupEngine& target) {
        target.setLastReport(report);
        target.setIsRunning(false);
    });
}

void failToStart(const FileError& error, RunLink& engine)
{
    const QString text = QStringLiteral("Could not create backup folders: ") + error.localizedDescription();
    if (engine.hop([text](BackupEngine& target) { target.setLastError(text); }))
        std::ignore = engine.hop([](BackupEngine& target) { target.setIsRunning(false); });
}

} // namespace

void run(const BackupJob& job, RunLink& engine)
{
    FileManager& fileManager = FileManager::defaultManager();
    const QDateTime startedAt = QDateTime::currentDateTimeUtc();
    const auto folders = createFolders(job, fileManager);
    if (!folders) {
        failToStart(folders.error(), engine);
        return;
    }

    const qint64 estimate =
        FileScanner::scan(job.sources, FileScanner::Sizes::leftOut, engine.cancellation()).fileCount;
    if (!engine.hop([estimate](BackupEngine& target) { target.setTotalFilesEstimate(estimate); }))
        return;
    for (const BackupSource& source : job.sources) {
        if (!source.isEnabled)
            continue;
        if (engine.cancellation().isCancelled())
            break;
        copySource(source, folders->latest, *folders->mirror, fileManager, engine);
    }
    if (engine.cancellation().isQuitting())
        return;
    const auto manifestPath = writeManifest(job, *folders, engine);
    if (manifestPath)
        conclude(job, startedAt, *folders, *manifestPath, engine);
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
