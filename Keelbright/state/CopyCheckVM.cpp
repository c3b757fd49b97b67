#include "Keelbright/state/CopyCheckVM.h"

#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Delivery.h"
#include "Keelbright/state/FileChooser.h"
#include "KeelbrightCore/check/ChecksumSpool.h"
#include "KeelbrightCore/check/CopyCheck.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QPointer>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int lookInterval = 100; // milliseconds

using Saved = std::expected<void, FileError>;

Saved writeList(ChecksumSpool& list, const FileURL& url)
{
    list.rewind();
    const auto nextPiece = [&list]() -> std::expected<QByteArray, FileError> {
        QByteArray piece = list.nextPiece();
        if (!list.isWhole())
            return failure(FileError::Operation::read, "checksums", EIO);
        return piece;
    };
    return FileManager::defaultManager().writePiecesAtomically(url, nextPiece);
}

} // namespace

CopyCheckVM::CopyCheckVM(AppState& state, FileChooser& files, QObject* parent)
    : QObject(parent)
    , m_state(state)
    , m_files(files)
{
    m_look.setInterval(lookInterval);
    connect(&m_look, &QTimer::timeout, this, &CopyCheckVM::readProgress);
    connect(&state.engine(), &BackupEngine::isRunningChanged, this, &CopyCheckVM::changed);
    connect(&state, &AppState::selectedDestinationChanged, this, &CopyCheckVM::changed);
    connect(&state, &AppState::isDestinationAwayChanged, this, &CopyCheckVM::changed);
}

CopyCheckVM::~CopyCheckVM()
{
    m_state.setIsCheckingCopies(false);
}

QString CopyCheckVM::refusal() const
{
    return m_state.engine().isRunning()
               ? tr("A backup is running. The copies can be checked when it has ended.")
               : QString();
}

QString CopyCheckVM::refusalForOriginals() const
{
    if (!m_state.selectedDestination())
        return tr("Choose a backup destination in Settings first.");
    // The folder that a drive has left behind would look like one without copies.
    if (m_state.isDestinationAway())
        return tr("%1 is not connected.").arg(driveName());
    return refusal();
}

QString CopyCheckVM::driveName() const
{
    const auto& destination = m_state.selectedDestination();
    return destination ? destination->displayName() : QString();
}

void CopyCheckVM::checkOriginals()
{
    const auto& destination = m_state.selectedDestination();
    if (!destination || !refusalForOriginals().isEmpty())
        return;
    start({.sources = m_state.allEnabledSources(), .destination = destination->url, .checksumList = {}});
}

void CopyCheckVM::checkList()
{
    if (!refusal().isEmpty())
        return;
    const FileOpenRequest request{.message = tr("Choose the list of checksums to compare the copies with."),
                                  .prompt = tr("Check"),
                                  .extensions = {u"sha256"_s},
                                  .folder = m_state.backupsFolder()};
    std::optional<FileURL> destination;
    if (const auto& selected = m_state.selectedDestination())
        destination = selected->url;
    // The window may have been closed while the chooser was open, and a backup may have begun.
    m_files.chooseFile(request, [model = QPointer(this), destination](const FileURL& list) {
        if (model && model->refusal().isEmpty())
            model->start({.sources = {}, .destination = destination, .checksumList = list});
    });
}

void CopyCheckVM::start(const CheckJob& job)
{
    if (m_phase == Phase::running || m_phase == Phase::cancelling)
        return;
    m_report.reset();
    m_savingNote.clear();
    m_values = {};
    m_pace = {};
    m_remaining = {};
    m_progress = std::make_shared<CheckProgress>();
    m_state.setIsCheckingCopies(true);
    m_look.start();
    setPhase(Phase::running);
    deliver(m_state.services().startCopyCheck(job, m_progress, m_task.begin()), this,
            [this](const CheckReport& report) { finish(report); });
}

void CopyCheckVM::finish(const CheckReport& report)
{
    m_look.stop();
    m_report = report;
    m_state.setIsCheckingCopies(false);
    setPhase(Phase::finished);
}

void CopyCheckVM::cancel()
{
    if (m_phase != Phase::running)
        return;
    m_task.cancel();
    setPhase(Phase::cancelling);
}

void CopyCheckVM::startOver()
{
    if (m_phase != Phase::finished)
        return;
    m_report.reset();
    setPhase(Phase::ready);
}

void CopyCheckVM::setPhase(Phase phase)
{
    m_phase = phase;
    Q_EMIT changed();
}

void CopyCheckVM::readProgress()
{
    m_values = m_progress->values();
    if (m_values.phase == CheckProgressValues::Phase::reading) {
        const std::chrono::milliseconds now = m_state.services().steadyClock();
        m_pace.add(now.count(), m_values.readBytes);
        m_remaining.add(now, m_values.readBytes, m_values.bytes);
    }
    Q_EMIT progressChanged();
}

QString CopyCheckVM::timeLeft() const
{
    const bool isReading = m_phase == Phase::running && m_values.phase == CheckProgressValues::Phase::reading;
    return isReading ? m_remaining.text() : QString();
}

bool CopyCheckVM::canSaveChecksums() const
{
    return m_report && m_report->end == CheckReport::End::complete && m_report->checksums &&
           m_report->checksums->isWhole() && m_report->checksums->count() > 0;
}

void CopyCheckVM::saveChecksums()
{
    if (!m_report || !canSaveChecksums())
        return;
    const FileURL proposed = CopyCheck::proposedChecksumList(m_report->deviceFolder);
    const FileSaveRequest request{.title = tr("Save Checksums"),
                                  .prompt = tr("Save"),
                                  .name = proposed.lastPathComponent(),
                                  .extension = u"sha256"_s,
                                  .folder = proposed.deletingLastPathComponent()};
    m_files.chooseSaveLocation(request, [model = QPointer(this)](const FileURL& url) {
        if (model)
            model->save(url);
    });
}

void CopyCheckVM::save(const FileURL& url)
{
    if (!m_report || !canSaveChecksums())
        return;
    const auto write = [list = m_report->checksums, url] { return writeList(*list, url); };
    deliver(TaskPools::runApart(TaskPools::Priority::userInitiated, write), this,
            [this, url](const Saved& saved) {
                noteSaving(saved ? tr("The checksums are saved as %1.").arg(url.lastPathComponent())
                                 : saved.error().localizedDescription(),
                           !saved.has_value());
            });
}

void CopyCheckVM::noteSaving(const QString& note, bool hasFailed)
{
    m_savingNote = note;
    m_hasSavingFailed = hasFailed;
    Q_EMIT changed();
}

} // namespace keelbright
