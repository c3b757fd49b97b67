#pragma once

#include <QObject>
#include <functional>

namespace keelbright {

class AppState;
class Notifier;

/// Notifies a user who has turned to another window of the end of a backup, or of one that could not start.
/// A click shows the report or the reason. Nothing after a cancel, which is the user's own. Main thread.
class BackupEndNotice : public QObject
{
    Q_OBJECT

public:
    /// What it asks of the program's windows.
    struct Windows
    {
        std::function<bool()> areInFront;
        std::function<void()> bringToFront;
    };

    /// The state and the notifier outlive it.
    BackupEndNotice(AppState& state, Notifier& notifier, Windows windows);

private:
    void followEngine();
    void showEnd();

    AppState& m_state;
    Notifier& m_notifier;
    Windows m_windows;
    bool m_wasRunning = false;
};

} // namespace keelbright
