#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QByteArray>
#include <expected>
#include <sys/types.h>
#include <vector>

namespace keelbright {

/// An open folder and a chain of folders below it, the innermost of which can be worked in.
/// Internal to the platform folder.
///
/// Only the root and the last few folders stay open. A folder that was closed meanwhile is
/// reached again through ".." and must still be the same one (device and inode), else by name
/// from the root; no link is ever followed on the way. Depth is bound neither by the number of
/// open files nor by the longest path.
class FolderChain
{
public:
    /// Takes over an open folder as the root.
    explicit FolderChain(FileDescriptor root);

    /// The innermost folder; stays owned here, valid until the next `enter` or `leave`.
    [[nodiscard]] int descriptor() const { return m_levels.back().folder.get(); }

    [[nodiscard]] int rootDescriptor() const { return m_levels.front().folder.get(); }

    /// How many folders below the root the innermost one lies.
    [[nodiscard]] size_t depth() const { return m_levels.size() - 1; }

    /// Path of the innermost folder below the root, without a slash at either end.
    [[nodiscard]] const QByteArray& relativePath() const { return m_path; }

    /// Whether the folder at that depth is open at the moment.
    [[nodiscard]] bool isOpen(size_t depth) const { return m_levels[depth].folder.isOpen(); }

    /// The least depth below the root from which on every folder is open.
    [[nodiscard]] size_t firstOpenDepth() const { return m_firstOpen; }

    /// Goes into a folder of the innermost one; an `errno` value where that can't be done
    /// (`ELOOP` or `ENOTDIR` for a link). The chain is unchanged then.
    [[nodiscard]] std::expected<void, int> enter(const QByteArray& name);
    /// Goes back to the parent. Where it can't be reached any more the chain goes on to the
    /// nearest ancestor that can, and says so with an `errno` value; the root is always reached.
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
    };

    void closeFarthest();
    [[nodiscard]] std::expected<FileDescriptor, int> reopen(size_t depth, int child) const;
    [[nodiscard]] std::expected<FileDescriptor, int> walkTo(size_t depth) const;

    std::vector<Level> m_levels;
    QByteArray m_path;
    size_t m_mostOpen;      ///< the root aside
    size_t m_firstOpen = 1; ///< all levels from here on are open; those between it and 0 are not
};

} // namespace keelbright
