#pragma once

#include <algorithm>
#include <array>
#include <cerrno>

namespace keelbright {

/// Whether an `errno` value says that the operating system or the file system has no such call. Of ENOTSUP
/// and EOPNOTSUPP, which are one value on Linux and two on macOS, file systems answer either. Internal to
/// the platform folder.
[[nodiscard]] inline bool meansUnsupported(int code)
{
    constexpr std::array codes{ENOTSUP, EOPNOTSUPP, ENOSYS, ENOTTY};
    return std::ranges::find(codes, code) != codes.end();
}

} // namespace keelbright
