#include "tests/support/TmpfsMount.h"

#include <QDir>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <sys/mount.h>

namespace keelbright::testing {

namespace {

std::string reason(const char* what)
{
    return std::string(what) + ": " + std::strerror(errno);
}

} // namespace

TmpfsMount::TmpfsMount(Limits limits)
{
    std::string options = "mode=0755,size=" + std::to_string(limits.bytes);
    if (limits.inodes > 0)
        options += ",nr_inodes=" + std::to_string(limits.inodes);
    if (::mount("tmpfs", m_folder.path().toLocal8Bit().constData(), "tmpfs", 0, options.c_str()) != 0)
        m_reasonMissing = reason("a file system of its own can't be mounted");
}

TmpfsMount::~TmpfsMount()
{
    // Lazily, so that an open file never leaves the mount behind.
    if (m_reasonMissing.empty() && ::umount2(m_folder.path().toLocal8Bit().constData(), MNT_DETACH) != 0)
        ADD_FAILURE() << reason("can't unmount");
}

FileURL TmpfsMount::root() const
{
    return FileURL::fromPath(QDir(m_folder.path()).canonicalPath());
}

void TmpfsMount::makeReadOnly() const
{
    if (::mount(nullptr, m_folder.path().toLocal8Bit().constData(), nullptr, MS_REMOUNT | MS_RDONLY,
                nullptr) != 0)
        ADD_FAILURE() << reason("can't turn the file system read-only");
}

} // namespace keelbright::testing
