#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/FolderOpening.h"

#include <QByteArray>
#include <algorithm>
#include <expected>
#include <new>
#include <optional>
#include <sys/stat.h>
#include <vector>

namespace keelbright {

/// How many folders of one chain may be open at a time, the root aside.
[[nodiscard]] size_t maximumOpenFolders();

/// How many files the walks of one call may keep open, so that a copy, another call and the rest of the
/// program have theirs.
[[nodiscard]] size_t openFilesForWalks();

/// An open folder and a chain of folders below it, the innermost of which can be worked in. Keeps
/// a `Data` of its user's with each folder. Internal to the platform folder.
///
/// Only the root and the last few folders stay open. A folder that was closed meanwhile is
/// reached again through ".." and must still be the same one (device and inode), else by name
/// from the root; no link is ever followed on the way. Depth is bound neither by the number of
/// open files nor by the longest path.
///
/// Where memory runs out, `enter` and `leave` throw and have changed nothing.
template <typename Data> class FolderChain
{
public:
    /// Takes over an open folder as the root.
    explicit FolderChain(FileDescriptor root, AccessTimes accessTimes = AccessTimes::noted)
        : m_accessTimes(accessTimes)
    {
        m_levels.push_back({.folder = std::move(root)});
    }

    /// The innermost folder; stays owned here, valid until the next `enter` or `leave`.
    [[nodiscard]] int descriptor() const { return m_levels.back().folder.get(); }

    /// How many folders below the root the innermost one lies.
    [[nodiscard]] size_t depth() const { return m_levels.size() - 1; }

    /// Path of the innermost folder below the root, without a slash at either end.
    [[nodiscard]] const QByteArray& relativePath() const { return m_path; }

    /// The folder that the next `enter` will close, by its depth; nothing where it need not close one.
    [[nodiscard]] std::optional<size_t> depthToClose() const
    {
        return m_levels.size() + 1 - m_firstOpen > m_maximumOpen ? std::optional(m_firstOpen) : std::nullopt;
    }

    /// The open folder at that depth; stays owned here.
    [[nodiscard]] int descriptorAt(size_t depth) const { return m_levels[depth].folder.get(); }

    /// What is kept with the innermost folder, or with the one at that depth.
    [[nodiscard]] Data& data() { return m_levels.back().data; }

    [[nodiscard]] Data& dataAt(size_t depth) { return m_levels[depth].data; }

    /// Goes into a folder of the innermost one; an `errno` value where that can't be done
    /// (`ELOOP` or `ENOTDIR` for a link). The chain is unchanged then.
    [[nodiscard]] std::expected<void, int> enter(const QByteArray& name);
    /// Goes into a folder of the innermost one that is open already.
    void enter(FileDescriptor folder, const QByteArray& name, Data data);
    /// Goes back to the parent. Where that can't be reached any more, the result is an `errno` value
    /// and the chain stands at the nearest ancestor that can be; the root always can.
    [[nodiscard]] std::expected<void, int> leave();
    /// Back to the root alone.
    void leaveAll();

private:
    struct Level
    {
        FileDescriptor folder;
        dev_t device = 0;
        ino_t inode = 0;
        qsizetype pathLength = 0; ///< of the relative path up to and including this level
        Data data = {};

        [[nodiscard]] bool isSame(int other) const
        {
            struct stat status = {};
            return ::fstat(other, &status) == 0 && status.st_dev == device && status.st_ino == inode;
        }
    };

    void closeFarthest();
    [[nodiscard]] std::expected<FileDescriptor, int> reopen(size_t depth, int child) const;
    [[nodiscard]] std::expected<FileDescriptor, int> walkTo(size_t depth) const;

    AccessTimes m_accessTimes;
    std::vector<Level> m_levels;
    QByteArray m_path;
    size_t m_maximumOpen = maximumOpenFolders();
    size_t m_firstOpen = 1; ///< all levels from here on are open; those between it and 0 are not
};

template <typename Data> std::expected<void, int> FolderChain<Data>::enter(const QByteArray& name)
{
    FileDescriptor folder = openFolder(descriptor(), name.constData(), m_accessTimes);
    if (!folder.isOpen())
        return std::unexpected(errno);
    enter(std::move(folder), name, {});
    return {};
}

template <typename Data>
void FolderChain<Data>::enter(FileDescriptor folder, const QByteArray& name, Data data)
{
    const qsizetype length = m_path.size();
    try {
        if (length > 0)
            m_path.append('/');
        m_path.append(name);
        m_levels.push_back(
            {.folder = std::move(folder), .pathLength = m_path.size(), .data = std::move(data)});
    } catch (const std::bad_alloc&) {
        m_path.truncate(length);
        throw;
    }
    if (m_levels.size() - m_firstOpen > m_maximumOpen)
        closeFarthest();
}

template <typename Data> void FolderChain<Data>::closeFarthest()
{
    // The identity is read only now: few trees are deep enough to need it.
    Level& level = m_levels[m_firstOpen];
    struct stat status = {};
    if (::fstat(level.folder.get(), &status) == 0) {
        level.device = status.st_dev;
        level.inode = status.st_ino;
    }
    level.folder.reset();
    ++m_firstOpen;
}

template <typename Data> std::expected<void, int> FolderChain<Data>::leave()
{
    std::expected<void, int> result;
    m_path.detach(); // to cut it below needs no memory then
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

template <typename Data> void FolderChain<Data>::leaveAll()
{
    m_levels.erase(m_levels.begin() + 1, m_levels.end());
    m_path.clear();
    m_firstOpen = 1;
}

template <typename Data>
std::expected<FileDescriptor, int> FolderChain<Data>::reopen(size_t depth, int child) const
{
    if (child >= 0) {
        FileDescriptor parent = openFolder(child, "..", m_accessTimes);
        if (parent.isOpen() && m_levels[depth].isSame(parent.get()))
            return parent;
    }
    // The child was moved away or can't be searched: its parent may still stand in its old place.
    return walkTo(depth);
}

template <typename Data> std::expected<FileDescriptor, int> FolderChain<Data>::walkTo(size_t depth) const
try {
    FileDescriptor folder = FileDescriptor::duplicate(m_levels.front().folder.get());
    if (!folder.isOpen())
        return std::unexpected(errno);
    qsizetype start = 0;
    for (size_t level = 1; level <= depth; ++level) {
        const qsizetype end = m_levels[level].pathLength;
        FileDescriptor next =
            openFolder(folder.get(), m_path.mid(start, end - start).constData(), m_accessTimes);
        if (!next.isOpen())
            return std::unexpected(errno);
        folder = std::move(next);
        start = end + 1;
    }
    if (!m_levels[depth].isSame(folder.get()))
        return std::unexpected(ESTALE);
    return folder;
} catch (const std::bad_alloc&) {
    return std::unexpected(ENOMEM);
}

} // namespace keelbright
