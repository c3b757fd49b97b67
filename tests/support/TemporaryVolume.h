#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <cerrno>
#include <sys/mount.h>
#include <sys/stat.h>

namespace keelbright::testing {

/// A second volume, real and in memory, mounted on a folder while it lives. Needs the right to
/// mount; `isMounted` says whether it was to be had.
class TemporaryVolume
{
public:
    explicit TemporaryVolume(FileURL mountPoint)
        : m_mountPoint(std::move(mountPoint))
        , m_error(::mount("tmpfs", path(), "tmpfs", 0, "size=4m,mode=0755") == 0 ? 0 : errno)
    {}

    /// The folder `source` under a second path: the same device, but no way to rename across.
    TemporaryVolume(FileURL mountPoint, const FileURL& source)
        : m_mountPoint(std::move(mountPoint))
        , m_error(::mount(source.nativePath().constData(), path(), nullptr, MS_BIND, nullptr) == 0 ? 0
                                                                                                   : errno)
    {}

    ~TemporaryVolume()
    {
        if (isMounted())
            ::umount2(path(), MNT_DETACH);
    }

    TemporaryVolume(const TemporaryVolume&) = delete;
    TemporaryVolume& operator=(const TemporaryVolume&) = delete;

    [[nodiscard]] bool isMounted() const { return m_error == 0; }

    /// Whether nothing can be written from now on.
    [[nodiscard]] bool makeReadOnly() const
    {
        return ::mount(nullptr, path(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }

    [[nodiscard]] const FileURL& location() const { return m_mountPoint; }

private:
    [[nodiscard]] const char* path() const { return m_mountPoint.nativePath().constData(); }

    FileURL m_mountPoint;
    int m_error;
};

} // namespace keelbright::testing
