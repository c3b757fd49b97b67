#pragma once

#include <QObject>
#include <optional>

namespace keelbright {

class AppState;
class TaskBar;

/// Shows in the task bar how far the running backup is, in whole percent, as its ring does; nothing once it
/// has ended, whatever its end is. Main thread.
class BackupInTaskBar : public QObject
{
    Q_OBJECT

public:
    /// Both outlive it.
    BackupInTaskBar(AppState& state, TaskBar& taskBar);
    ~BackupInTaskBar() override;
    Q_DISABLE_COPY_MOVE(BackupInTaskBar)

private:
    void followEngine();
    void hide();

    const AppState& m_state;
    TaskBar& m_taskBar;
    std::optional<int> m_percent; ///< what is shown
};

} // namespace keelbright
