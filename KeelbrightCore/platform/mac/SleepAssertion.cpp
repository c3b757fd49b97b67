#include "KeelbrightCore/platform/system/SleepAssertion.h"

#include "KeelbrightCore/platform/mac/CoreFoundation.h"

#include <IOKit/pwr_mgt/IOPMLib.h>
#include <tuple>

namespace keelbright {

bool SleepAssertion::isThere()
{
    return true;
}

std::optional<quint32> SleepAssertion::take(const QString& reason)
{
    // The display may go dark, and a closed lid sleeps as ever.
    const CoreFoundationOwner<CFStringRef> kind(QStringLiteral("PreventUserIdleSystemSleep").toCFString());
    const CoreFoundationOwner<CFStringRef> name(reason.toCFString());
    IOPMAssertionID assertion = 0;
    if (::IOPMAssertionCreateWithName(kind.get(), kIOPMAssertionLevelOn, name.get(), &assertion) !=
        kIOReturnSuccess)
        return std::nullopt;
    return assertion;
}

void SleepAssertion::release(quint32 assertion)
{
    std::ignore = ::IOPMAssertionRelease(assertion);
}

} // namespace keelbright
