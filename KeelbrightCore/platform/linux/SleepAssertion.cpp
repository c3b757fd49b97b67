#include "KeelbrightCore/platform/system/SleepAssertion.h"

namespace keelbright {

bool SleepAssertion::isThere()
{
    return false;
}

std::optional<quint32> SleepAssertion::take(const QString&)
{
    return std::nullopt;
}

void SleepAssertion::release(quint32) {}

} // namespace keelbright
