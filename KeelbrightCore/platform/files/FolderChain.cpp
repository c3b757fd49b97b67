#include "KeelbrightCore/platform/files/FolderChain.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace keelbright {

namespace {

/// How many folders of one chain are open at most, the root aside. Trees of people are rarely
/// deeper. A process may mostly have 1,024 or 256 files open; where it is fewer, the two chains of
/// a copy leave room for the rest of the program, a file for each of its threads above all.
size_t mostOpenFolders()
{
    constexpr rlim_t most = 24;
    constexpr rlim_t least = 4;
    constexpr rlim_t ofTheProgram = 52;
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= ofTheProgram + 2 * most)
        return most;
    return limit.rlim_cur <= ofTheProgram + 2 * least ? least : (limit.rlim_cur - ofTheProgram) / 2;
}

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;

FileDescriptor openFolder(int parent, const char* name)
{
    return FileDescriptor(retrying([&] { return ::openat(parent, name, folderFlags); }));
}

} // namespace

FolderChain::FolderChain(FileDescriptor root)
    : m_mostOpen(mostOpenFolders())
{
    m_levels.push_back({std::move(root)});
}

std::expected<void, int> FolderChain::enter(const QByteArray& name)
{
    FileDescriptor folder = openFolder(descriptor(), name.constData());
    if (!folder.isOpen())
        return std::unexpected(errno);
    if (!m_path.isEmpty())
        m_path.append('/');
    m_path.append(name);
    m_levels.push_back({.folder = std::move(folder), .pathLength = m_path.size()});
    if (m_levels.size() - m_firstOpen > m_mostOpen)
        closeFarthest();
    return {};
}

void FolderChain::closeFarthest()
{
    // The identity is read only now: most trees never come here.
    Level& level = m_levels[m_firstOpen];
    struct stat status = {};
    if (::fstat(level.folder.get(), &status) == 0) {
        level.device = status.st_dev;
        level.inode = status.st_ino;
    }
    level.folder.reset();
    ++m_firstOpen;
}

std::expected<void, int> FolderChain::leave()
{
    std::expected<void, int> result;
    Level child = std::move(m_levels.back());
    m_levels.pop_back();
    while (!m_levels.back().folder.isOpen()) {
        auto parent = reopen(depth(), child.folder.get());
        if (parent) {
            m_levels.back().folder = std::move(*parent);
            m_firstOpen = depth();
            break;
        }
        result = std::unexpected(parent.error());
        child = std::move(m_levels.back());
        m_levels.pop_back();
    }
    m_firstOpen = std::min(m_firstOpen, m_levels.size());
    m_path.truncate(m_levels.back().pathLength);
    return result;
}

void FolderChain::leaveAll()
{
    m_levels.resize(1);
    m_path.clear();
    m_firstOpen = 1;
}

std::expected<FileDescriptor, int> FolderChain::reopen(size_t depth, int child) const
{
    if (child >= 0) {
        FileDescriptor parent = openFolder(child, "..");
        struct stat status = {};
        const Level& expected = m_levels[depth];
        if (parent.isOpen() && ::fstat(parent.get(), &status) == 0 && status.st_dev == expected.device &&
            status.st_ino == expected.inode)
            return parent;
    }
    // The child was moved away or can't be searched: its parent may still stand in its old place.
    return walkTo(depth);
}

std::expected<FileDescriptor, int> FolderChain::walkTo(size_t depth) const
{
    FileDescriptor folder = FileDescriptor::duplicate(rootDescriptor());
    if (!folder.isOpen())
        return std::unexpected(errno);
    qsizetype start = 0;
    for (size_t level = 1; level <= depth; ++level) {
        const qsizetype end = m_levels[level].pathLength;
        const QByteArray name = m_path.mid(start, end - start);
        FileDescriptor next = openFolder(folder.get(), name.constData());
        if (!next.isOpen())
            return std::unexpected(errno);
        folder = std::move(next);
        start = end + 1;
    }
    struct stat status = {};
    if (::fstat(folder.get(), &status) != 0)
        return std::unexpected(errno);
    if (status.st_dev != m_levels[depth].device || status.st_ino != m_levels[depth].inode)
        return std::unexpected(ESTALE);
    return folder;
}

} // namespace keelbright
