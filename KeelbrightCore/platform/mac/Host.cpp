#include "KeelbrightCore/platform/system/Host.h"

#include "KeelbrightCore/platform/system/HostName.h"

#include <SystemConfiguration/SystemConfiguration.h>
#include <array>
#include <sys/sysctl.h>

namespace keelbright {

namespace {

std::optional<QString> computerName()
{
    const CFStringRef name = SCDynamicStoreCopyComputerName(nullptr, nullptr);
    if (!name)
        return std::nullopt;
    QString text = QString::fromCFString(name);
    CFRelease(name);
    if (text.isEmpty())
        return std::nullopt;
    return text;
}

QString kernelFact(const char* name)
{
    std::array<char, 64> buffer = {};
    size_t size = buffer.size() - 1;
    return ::sysctlbyname(name, buffer.data(), &size, nullptr, 0) == 0 ? QString::fromUtf8(buffer.data())
                                                                       : QString();
}

} // namespace

std::optional<QString> Host::localizedName()
{
    const std::optional<QString> given = computerName();
    return given ? given : hostName();
}

QString Host::operatingSystemVersionString()
{
    return QStringLiteral("Version %1 (Build %2)")
        .arg(kernelFact("kern.osproductversion"), kernelFact("kern.osversion"));
}

} // namespace keelbright
