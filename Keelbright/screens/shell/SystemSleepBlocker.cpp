#include "Keelbright/screens/shell/SystemSleepBlocker.h"

#include "KeelbrightCore/platform/system/SleepAssertion.h"

#include <utility>

namespace keelbright {

SystemSleepBlocker::~SystemSleepBlocker()
{
    SystemSleepBlocker::allow();
}

void SystemSleepBlocker::block(const QString& reason)
{
    if (!m_assertion)
        m_assertion = SleepAssertion::take(reason);
}

void SystemSleepBlocker::allow()
{
    if (const auto assertion = std::exchange(m_assertion, std::nullopt))
        SleepAssertion::release(*assertion);
}

} // namespace keelbright
