#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <memory>

namespace keelbright {

class Cancellation;
class DirectoryEnumerator;

/// A copy whose data, mode and times are complete, but which has no name yet.
///
/// Destroying it unpublished leaves nothing behind. Until then further copies may be prepared and
/// other folders entered. It must not outlive its destination.
class PreparedCopy
{
public:
    virtual ~PreparedCopy() = default;
    /// Gives the copy its name; replaces an older file of that name in one step.
    [[nodiscard]] virtual std::expected<void, FileError> publish() = 0;
    /// Logical size in bytes of the source item; of a link, that of the link itself.
    [[nodiscard]] virtual qint64 sourceSize() const = 0;
};

/// A folder tree that files are copied into.
///
/// Everything happens relative to open folders, from the folder that it was opened at (the anchor)
/// downwards, and no link below the anchor is ever followed. Once the anchor's path leads elsewhere
/// (unmounted, mounted over, replaced), every call fails. One thread at a time.
class CopyDestination
{
public:
    virtual ~CopyDestination() = default;

    /// Makes `relativeFolder` (below the anchor, no slash at either end, empty for the anchor)
    /// the folder that files are copied to, and creates what is missing of it.
    [[nodiscard]] virtual std::expected<void, FileError> enterFolder(QByteArrayView relativeFolder) = 0;

    /// Copies the enumerator's current entry, a regular file or a link, into the entered folder
    /// under the same name. An unfinished copy is given up when the program quits; a user who cancels
    /// lets it finish.
    [[nodiscard]] virtual std::expected<std::unique_ptr<PreparedCopy>, FileError>
    prepare(const DirectoryEnumerator& item, const Cancellation& cancellation) = 0;

    /// How many copies may be prepared before the first of them is published; 1 or more. Call it
    /// when a folder has been entered: the value depends on the drive.
    [[nodiscard]] virtual qsizetype maximumPrepared() const = 0;

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
