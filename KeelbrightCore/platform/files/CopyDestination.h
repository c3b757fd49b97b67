#pragma once

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <functional>
#include <memory>

namespace keelbright {

class Cancellation;
class FileDescriptor;
struct TargetFolder;

/// A copy whose data, mode and times are complete, but which has no name yet.
///
/// Destroying it unpublished leaves nothing behind. It may pass from thread to thread, and outlive its
/// destination.
class PreparedCopy
{
public:
    virtual ~PreparedCopy() = default;
    /// Brings the data of a copy that is to replace an older one onto the drive, so that a power cut
    /// leaves one of the two whole under their name. Does nothing for a new copy, nor where the file
    /// system does so by itself. To be called before `publish`; all copies of a burst before the first
    /// of them is published.
    [[nodiscard]] virtual std::expected<void, FileError> flushBeforeReplacing() = 0;
    /// Gives the copy its name; replaces an older file of that name in one step.
    [[nodiscard]] virtual std::expected<void, FileError> publish() = 0;
    /// Logical size in bytes of the source item; of a link, that of the link itself.
    [[nodiscard]] virtual qint64 sourceSize() const = 0;
};

/// What is to be copied, and the folder that it goes to. Keeps both folders open; may pass from thread to
/// thread, and outlive its destination.
struct PlannedCopy
{
    std::shared_ptr<const FileDescriptor> source; ///< the folder of the item
    std::shared_ptr<const TargetFolder> target;
    QByteArray name; ///< of the item and of its copy
    EntryType type = EntryType::other;
    QByteArray twin = {}; ///< the name of an item planned before that some drives take for the same
};

/// Prepares planned copies. One thread at a time; several workers of one destination may work at the
/// same time, and outlive it.
class CopyWorker
{
public:
    virtual ~CopyWorker() = default;

    /// Copies a regular file or a link. An unfinished copy is given up when `cancellation` quits; a user
    /// who cancels lets it finish. May be called again for a plan whose copy has failed or was dropped.
    [[nodiscard]] virtual std::expected<std::unique_ptr<PreparedCopy>, FileError>
    prepare(const PlannedCopy& plan, const Cancellation& cancellation) = 0;
};

/// A folder of the destination that nothing more is planned for. It may pass from thread to thread, and
/// outlive its destination.
class FilledFolder
{
public:
    virtual ~FilledFolder() = default;
    /// Gives it the permissions and the times of its source; to be called when all copies that were planned
    /// for it and for the folders below it have been published. What a drive can't hold is no error.
    virtual void complete() = 0;
    /// The same after a run that did not publish all of them; a folder that was created for copies that never
    /// came is removed.
    virtual void giveUp() = 0;
};

/// A folder tree that files are copied into.
///
/// Everything happens relative to open folders, from the folder that it was opened at (the anchor)
/// downwards, and no link below the anchor is ever followed. Once the anchor's path leads elsewhere
/// (unmounted, mounted over, replaced), every call fails, and so does every call of its workers and
/// copies. One thread at a time.
class CopyDestination
{
public:
    virtual ~CopyDestination() = default;

    /// Makes `relativeFolder` (below the anchor, no slash at either end, empty for the anchor)
    /// the folder that files are copied to, and creates what is missing of it. The entries planned from
    /// now on lie in one folder of their source, until the next call.
    ///
    /// With `items`, the last folders of the path get the owner, the permissions and the attributes of the
    /// folder that its current entry lies in, of the one around it, and so on up to its root. The copies of
    /// folders are never more open to others than these.
    [[nodiscard]] virtual std::expected<void, FileError>
    enterFolder(QByteArrayView relativeFolder, const DirectoryEnumerator* items = nullptr) = 0;

    using FilledFolderHandler = std::function<void(std::unique_ptr<FilledFolder>)>;
    /// Called for each copy of a folder that is left for good, from within `enterFolder` and `leaveFolders`.
    virtual void setFilledFolderHandler(FilledFolderHandler handler) = 0;
    /// Leaves all folders down to the anchor.
    virtual void leaveFolders() = 0;

    /// Whether the entry is the folder around the anchor, the anchor itself, the copy of the source that is
    /// being filled, or one of their folders that is mounted in its place, by whatever path the walk has come
    /// to it: what a run writes is nothing to be copied. Several threads may ask before the first folder is
    /// entered.
    [[nodiscard]] virtual bool isOwnFolder(const DirectoryEnumerator& item) const = 0;

    /// Plans the copy of the enumerator's current entry into the entered folder under the same name.
    [[nodiscard]] virtual std::expected<PlannedCopy, FileError> plan(const DirectoryEnumerator& item) = 0;

    [[nodiscard]] virtual std::unique_ptr<CopyWorker> makeWorker() = 0;

    /// How many copies may be planned before the first of them is published; 1 or more. Call it
    /// when a folder has been entered: the value depends on the drive.
    [[nodiscard]] virtual qsizetype maximumPrepared() = 0;

    /// Writes a file of that name into the anchor itself, in one step and through to the drive; an
    /// old file of that name stays whole until the new one is.
    [[nodiscard]] virtual std::expected<void, FileError> writeAtomically(const QByteArray& name,
                                                                         const QByteArray& data) = 0;

    /// Whether the anchor's path still leads to the folder that was opened; asks the file system.
    [[nodiscard]] virtual bool isInPlace() = 0;

    /// Brings everything written to the file system since the destination was opened onto the
    /// drive; reports every write-back error of that time.
    [[nodiscard]] virtual std::expected<void, FileError> flush() = 0;
};

} // namespace keelbright
