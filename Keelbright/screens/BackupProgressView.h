#pragma once

#include "Keelbright/widgets/FrameThrottle.h"
#include "Keelbright/widgets/Page.h"
#include "KeelbrightCore/backup/BackupReport.h"

#include <QUuid>

namespace keelbright {

class AppState;
class BackupEngine;
class BackupRunningPanel;
class Banner;
class Workspace;

/// Shows the running backup, else the result of the last one, else that there is none. Leaving the
/// screen does not affect the run.
class BackupProgressView : public Page
{
    Q_OBJECT

public:
    /// The arguments must outlive the screen.
    BackupProgressView(AppState& state, Workspace& workspace, QWidget* parent = nullptr);

    /// How the engine's last run ended, in one sentence; empty before the first end of a run.
    [[nodiscard]] static QString outcome(const BackupEngine& engine);

private:
    enum class Shown { nothing, running, finished, empty };

    void watchState();
    void redraw();
    void redrawProgress();
    void redrawError();
    [[nodiscard]] QString destinationName() const;
    void showRunning();
    void showFinished(const BackupReport& report);
    void showEmpty();
    /// Replaces the panel that was shown before.
    void replacePanel(QWidget* panel, Shown shown);

    AppState& m_state;
    Workspace& m_workspace;
    FrameThrottle m_frames;
    FrameThrottle m_progressFrames;
    Banner* m_error;
    Banner* m_cancelled;
    Shown m_shown = Shown::nothing;
    QUuid m_shownReport;
    QWidget* m_panel = nullptr;
    BackupRunningPanel* m_running = nullptr;
};

} // namespace keelbright
