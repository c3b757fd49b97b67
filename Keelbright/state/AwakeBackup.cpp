#include "Keelbright/state/AwakeBackup.h"

#include "Keelbright/state/SleepBlocker.h"
#include "KeelbrightCore/backup/BackupEngine.h"

namespace keelbright {

AwakeBackup::AwakeBackup(BackupEngine& engine, SleepBlocker& blocker)
    : m_engine(engine)
    , m_blocker(blocker)
{
    connect(&engine, &BackupEngine::isRunningChanged, this, &AwakeBackup::followEngine);
    followEngine();
}

AwakeBackup::~AwakeBackup()
{
    if (m_isBlocking)
        m_blocker.allow();
}

void AwakeBackup::followEngine()
{
    if (m_engine.isRunning() == m_isBlocking)
        return;
    m_isBlocking = m_engine.isRunning();
    if (m_isBlocking)
        m_blocker.block(tr("A backup is running"));
    else
        m_blocker.allow();
}

} // namespace keelbright
