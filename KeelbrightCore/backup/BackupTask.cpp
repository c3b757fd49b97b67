#include "KeelbrightCore/backup/BackupTask.h"

#include "KeelbrightCore/backup/BackupEngine.h"

#include <chrono>
#include <utility>

namespace keelbright {

BackupTask::BackupTask(BackupEngine& engine)
    : m_engine(engine)
{}

void BackupTask::post(UniqueFunction<void(BackupEngine&)> change)
{
    m_hop.post([this, change = std::move(change)]() mutable { change(m_engine); });
}

bool BackupTask::hop(UniqueFunction<void(BackupEngine&)> change)
{
    post(std::move(change));
    return wait();
}

bool BackupTask::close(int milliseconds)
{
    m_cancellation.quit();
    m_hop.close();
    const bool hasEnded = m_ended.try_acquire_for(std::chrono::milliseconds(milliseconds));
    if (hasEnded)
        m_ended.release(); // so that a second call is told the same
    return hasEnded;
}

} // namespace keelbright
