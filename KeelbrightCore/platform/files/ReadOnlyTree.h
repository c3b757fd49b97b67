#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/files/FolderId.h"
#include "KeelbrightCore/platform/files/ReadOnlyFile.h"

#include <memory>

namespace keelbright {

/// A folder tree that is looked into by paths and never changed, not even in its access times where the
/// system allows that to the user.
///
/// Everything happens relative to open folders, and no link below the root is ever followed. Paths are
/// relative to the root, without a slash at either end. Quick where one path lies near the one before. One
/// thread at a time. A failure is the `errno` value.
class ReadOnlyTree
{
public:
    /// The folder at `relativeFolder` below `base`; `base` itself may be reached through links.
    [[nodiscard]] static std::expected<std::unique_ptr<ReadOnlyTree>, FileError>
    open(const FileURL& base, QByteArrayView relativeFolder = {});
    ~ReadOnlyTree();
    ReadOnlyTree(const ReadOnlyTree&) = delete;
    ReadOnlyTree& operator=(const ReadOnlyTree&) = delete;

    [[nodiscard]] std::expected<ItemStatus, int> status(QByteArrayView folder, const QByteArray& name);
    [[nodiscard]] std::expected<QByteArray, int> linkTarget(QByteArrayView folder, const QByteArray& name);
    [[nodiscard]] std::expected<ReadOnlyFile, int> openFile(QByteArrayView folder, const QByteArray& name);

    /// The folder at that path; no folder where there is none.
    [[nodiscard]] FolderId folderId(QByteArrayView folder);

    /// Whether a backup whose copies go to the root leaves the entry out as a folder of its own, while it
    /// fills the folder `copyOfSource`: by the rule of `CopyDestination`.
    [[nodiscard]] bool isOwnFolder(const DirectoryEnumerator& item, const FolderId& copyOfSource) const;

    /// Whether the entry is the root itself, by whatever path the walk has come to it.
    [[nodiscard]] bool isRoot(const DirectoryEnumerator& item) const;

    /// Whether a read that failed with `code` did so because the whole drive is gone: pulled out, unmounted
    /// or replaced. Asks the system.
    [[nodiscard]] bool isGone(int code);

    /// Whether reads can be made to reach the drive itself: false in memory, and behind a network or another
    /// program, which may answer from their own memory.
    [[nodiscard]] bool liesOnLocalDrive() const;

private:
    class Folders;
    explicit ReadOnlyTree(std::unique_ptr<Folders> folders);
    std::unique_ptr<Folders> m_folders;
};

} // namespace keelbright
