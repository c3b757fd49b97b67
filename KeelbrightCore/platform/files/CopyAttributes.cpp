#include "KeelbrightCore/platform/files/CopyAttributes.h"

#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/Unsupported.h"

#include <array>
#include <tuple>
#include <unistd.h>

namespace keelbright {

namespace {

constexpr mode_t allPermissions = 0777;
constexpr mode_t rightsOfOthers = S_IRWXG | S_IRWXO;

/// Whether the code means that the drive has no such attribute, not that it failed to store it.
bool isUnsupported(int code)
{
    return code == EPERM || code == EACCES || code == EINVAL || meansUnsupported(code);
}

/// 0, or an `errno` value.
int giveTimes(int copy, const struct stat& source)
{
    const std::array<timespec, 2> times = {SystemCalls::accessTime(source),
                                           SystemCalls::modificationTime(source)};
    const int code = ::futimens(copy, times.data()) == 0 ? 0 : errno;
    SystemCalls::copySystemFacts(source, copy);
    return code;
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

mode_t CopyAttributes::giveOwner(int copy, const struct stat& source) const
{
    const mode_t mode = source.st_mode & 07777;
    if (isOwn(source) || ::fchown(copy, source.st_uid, source.st_gid) == 0)
        return mode;
    std::ignore = ::fchown(copy, static_cast<uid_t>(-1), source.st_gid);
    return mode & allPermissions; // never lend a foreign owner's rights to the user's own copy
}

std::expected<CopyAttributes::FolderEnd, int> CopyAttributes::beginFolder(int source, int copy,
                                                                          bool isShared) const
{
    struct stat status = {};
    struct stat before = {};
    if (::fstat(source, &status) != 0 || ::fstat(copy, &before) != 0)
        return std::unexpected(errno);
    FolderEnd end{.source = status};
    // Without its access list a folder would be open to all that the list had let in altogether.
    if (::fchmod(copy, S_IRWXU) != 0) {
        // Into a folder of a read-only drive nothing is copied anyway.
        if (isUnsupported(errno) || errno == EROFS)
            return end;
        return std::unexpected(errno);
    }
    SystemCalls::removeAccessLists(copy);
    end.mode = giveOwner(copy, status);
    if (status.st_uid != m_user)
        end.mode |= S_IRWXU; // the next run has to come in
    if (isShared)
        end.mode &= before.st_mode | ~rightsOfOthers;
    SystemCalls::copyExtendedAttributes(source, copy);
    if (::fchmod(copy, end.mode | S_IRWXU) != 0 && !isUnsupported(errno))
        return std::unexpected(errno);
    return end;
}

void CopyAttributes::endFolder(int copy, const FolderEnd& end)
{
    if ((end.mode & S_IRWXU) != S_IRWXU)
        std::ignore = ::fchmod(copy, end.mode);
    std::ignore = giveTimes(copy, end.source);
}

std::expected<void, int> CopyAttributes::copy(int source, int target, const struct stat& status,
                                              bool hasMode) const
{
    const mode_t mode = giveOwner(target, status);
    SystemCalls::copyExtendedAttributes(source, target);
    if (!hasMode && ::fchmod(target, mode) != 0 && !isUnsupported(errno))
        return std::unexpected(errno);
    if (const int code = giveTimes(target, status); code != 0 && !isUnsupported(code))
        return std::unexpected(code);
    return {};
}

} // namespace keelbright
