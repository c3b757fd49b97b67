#include "KeelbrightCore/platform/system/Host.h"

#include "KeelbrightCore/platform/system/HostName.h"

#include <array>
#include <unistd.h>

namespace keelbright {

std::optional<QString> hostName()
{
    std::array<char, 256> buffer = {};
    if (::gethostname(buffer.data(), buffer.size() - 1) != 0)
        return std::nullopt;
    QString name = QString::fromUtf8(buffer.data()).trimmed();
    // What the kernel reports where nobody has set a name.
    if (name.isEmpty() || name == QStringLiteral("(none)"))
        return std::nullopt;
    return name;
}

std::optional<QString> Host::environment(const char* name)
{
    if (!qEnvironmentVariableIsSet(name))
        return std::nullopt;
    return QString::fromUtf8(qgetenv(name));
}

} // namespace keelbright
