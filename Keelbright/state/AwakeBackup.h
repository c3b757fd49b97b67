#pragma once

#include <QObject>

namespace keelbright {

class BackupEngine;
class SleepBlocker;

/// Keeps the machine awake while a backup runs, whatever its end is. Main thread.
class AwakeBackup : public QObject
{
    Q_OBJECT

public:
    /// Both outlive it.
    AwakeBackup(BackupEngine& engine, SleepBlocker& blocker);
    ~AwakeBackup() override;
    Q_DISABLE_COPY_MOVE(AwakeBackup)

private:
    void followEngine();

    BackupEngine& m_engine;
    SleepBlocker& m_blocker;
    bool m_isBlocking = false;
};

} // namespace keelbright
