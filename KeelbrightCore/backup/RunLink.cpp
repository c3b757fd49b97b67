#include "KeelbrightCore/backup/RunLink.h"

#include "KeelbrightCore/backup/BackupEngine.h"

#include <chrono>
#include <utility>

namespace keelbright {

RunLink::RunLink(BackupEngine& engine)
    : m_engine(engine)
{}

void RunLink::post(UniqueFunction<void(BackupEngine&)> change)
{
    m_hop.post([this, change = std::move(change)]() mutable { change(m_engine); });
}

bool RunLink::hop(UniqueFunction<void(BackupEngine&)> change)
{
    post(std::move(change));
    return wait();
}

bool RunLink::close(int milliseconds)
{
    m_cancellation.quit();
    m_hop.close();
    const bool hasEnded = m_ended.try_acquire_for(std::chrono::milliseconds(milliseconds));
    if (hasEnded)
        m_ended.release(); // so that a second call is told the same
    return hasEnded;
}

} // namespace keelbright
