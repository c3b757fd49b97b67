#include "KeelbrightCore/platform/files/CopyAttributes.h"

#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <array>
#include <tuple>
#include <unistd.h>

namespace keelbright {

namespace {

constexpr mode_t allPermissions = 0777;

/// Whether the code means that the drive has no such attribute, not that it failed to store it.
bool isUnsupported(int code)
{
    return code == EPERM || code == EACCES || code == EINVAL || code == ENOSYS || code == EOPNOTSUPP;
}

} // namespace

CopyAttributes::CopyAttributes()
    : m_user(::geteuid())
    , m_group(::getegid())
    , m_umask(SystemCalls::processUmask())
{}

mode_t CopyAttributes::umaskIn(int folder) const
{
    return SystemCalls::hasDefaultAccessList(folder) ? allPermissions : m_umask;
}

bool CopyAttributes::isModeSetAtCreation(const struct stat& source, mode_t umask) const
{
    const mode_t mode = source.st_mode & 07777;
    return isOwn(source) && (mode & (umask | ~allPermissions)) == 0;
}

bool CopyAttributes::isOwn(const struct stat& source) const
{
    return source.st_uid == m_user && source.st_gid == m_group;
}

std::expected<void, int> CopyAttributes::copy(int source, int target, const struct stat& status,
                                              bool hasMode) const
{
    mode_t mode = status.st_mode & 07777;
    if (!isOwn(status) && ::fchown(target, status.st_uid, status.st_gid) != 0) {
        std::ignore = ::fchown(target, static_cast<uid_t>(-1), status.st_gid);
        mode &= allPermissions; // never lend a foreign owner's rights to the user's own copy
    }
    SystemCalls::copyExtendedAttributes(source, target);
    if (!hasMode && ::fchmod(target, mode) != 0 && !isUnsupported(errno))
        return std::unexpected(errno);
    const std::array<timespec, 2> times = {SystemCalls::accessTime(status),
                                           SystemCalls::modificationTime(status)};
    if (::futimens(target, times.data()) != 0 && !isUnsupported(errno))
        return std::unexpected(errno);
    return {};
}

} // namespace keelbright
