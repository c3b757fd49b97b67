#pragma once

#include "Keelbright/widgets/FrameThrottle.h"
#include "Keelbright/widgets/Page.h"
#include "KeelbrightCore/backup/BackupReport.h"

#include <QUuid>

namespace keelbright {

class AppState;
class BackupRunningPanel;
class Banner;
class Workspace;

/// Follows the engine: the running backup, else how the last one ended, else that there is none.
/// Leaving the screen leaves the run alone.
class BackupProgressView : public Page
{
    Q_OBJECT

public:
    /// What is handed in outlives the screen.
    BackupProgressView(AppState& state, Workspace& workspace, QWidget* parent = nullptr);

private:
    enum class Shown { nothing, running, finished, empty };

    void watchState();
    void redraw();
    void redrawProgress();
    void redrawError();
    void showRunning();
    void showFinished(const BackupReport& report);
    void showEmpty();
    /// Takes the place of what was shown before.
    void replacePanel(QWidget* panel, Shown shown);

    AppState& m_state;
    Workspace& m_workspace;
    FrameThrottle m_frames;
    FrameThrottle m_progressFrames;
    Banner* m_error;
    Shown m_shown = Shown::nothing;
    QUuid m_shownReport;
    QWidget* m_panel = nullptr;
    BackupRunningPanel* m_running = nullptr;
};

} // namespace keelbright
