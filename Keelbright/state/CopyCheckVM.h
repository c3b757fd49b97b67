#pragma once

#include "Keelbright/state/RemainingTime.h"
#include "KeelbrightCore/check/CheckPace.h"
#include "KeelbrightCore/check/CheckProgress.h"
#include "KeelbrightCore/check/CheckReport.h"
#include "KeelbrightCore/platform/system/LatestTask.h"

#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>

namespace keelbright {

class AppState;
class FileChooser;
struct CheckJob;

/// What the window for checking copies shows: the start, the running check, its result. Main thread only.
/// Destroying it gives a running check up.
class CopyCheckVM : public QObject
{
    Q_OBJECT

public:
    enum class Phase { ready, running, cancelling, finished };

    /// Both outlive the model.
    CopyCheckVM(AppState& state, FileChooser& files, QObject* parent = nullptr);
    ~CopyCheckVM() override;
    Q_DISABLE_COPY_MOVE(CopyCheckVM)

    [[nodiscard]] Phase phase() const { return m_phase; }

    /// Why no check can begin now, as a sentence; empty where one can.
    [[nodiscard]] QString refusal() const;
    /// Why the copies can't be compared with their originals now; empty where they can.
    [[nodiscard]] QString refusalForOriginals() const;
    /// The name of the destination's drive; empty where there is none.
    [[nodiscard]] QString driveName() const;

    [[nodiscard]] const CheckProgressValues& progress() const { return m_values; }

    [[nodiscard]] const CheckPace& pace() const { return m_pace; }

    /// "About 4 minutes left", or empty while that is not known and once the check is cancelled.
    [[nodiscard]] QString timeLeft() const;

    /// The result of the last check; absent before the first has ended, and while another one runs.
    [[nodiscard]] const std::optional<CheckReport>& report() const { return m_report; }

    /// Compares the copies with their originals. Does nothing where that is refused.
    void checkOriginals();
    /// Asks for a list of checksums and compares the copies with it.
    void checkList();
    /// Asks the running check to end; its result is as far as it came.
    void cancel();
    /// Back to the start; does nothing while a check runs.
    void startOver();

    /// Whether the last check was whole and has kept its checksums.
    [[nodiscard]] bool canSaveChecksums() const;
    /// Asks for a place and writes the list of checksums there, in the background.
    void saveChecksums();

    /// What has come of saving the list, as a sentence; empty where none has been saved.
    [[nodiscard]] const QString& savingNote() const { return m_savingNote; }

    [[nodiscard]] bool hasSavingFailed() const { return m_hasSavingFailed; }

Q_SIGNALS:
    /// Anything but the progress.
    void changed();
    /// Some times a second while a check runs.
    void progressChanged();

private:
    void start(const CheckJob& job);
    void finish(const CheckReport& report);
    void setPhase(Phase phase);
    void readProgress();
    void save(const FileURL& url);
    void noteSaving(const QString& note, bool hasFailed);

    AppState& m_state;
    FileChooser& m_files;
    Phase m_phase = Phase::ready;
    LatestTask m_task;
    std::shared_ptr<CheckProgress> m_progress;
    CheckProgressValues m_values;
    CheckPace m_pace;
    RemainingTime m_remaining;
    QTimer m_look;
    std::optional<CheckReport> m_report;
    QString m_savingNote;
    bool m_hasSavingFailed = false;
};

} // namespace keelbright
