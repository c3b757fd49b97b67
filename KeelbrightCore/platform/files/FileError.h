#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QString>
#include <expected>

namespace keelbright {

/// Why an operation on a file failed: a value, never thrown.
struct FileError
{
    /// What was being done, as the verb of the sentence "… could not be <verb>".
    enum class Operation {
        read,
        written,
        created,
        copied,
        replaced,
        moved,
        opened,
        listed,
        removed,
        trashed,
        restored,
        measured,
        flushed,
        launched,
    };

    /// Reasons of this program's own, for which the system has no error code.
    enum class Reason {
        system,               ///< see `code`
        notARegularFile,      ///< a FIFO, a socket or a device
        changedDuringCopy,    ///< the source did not hold still through all attempts
        endsEarly,            ///< the source gave less data than its size says, twice
        symbolicLinkInTheWay, ///< a folder of the destination turned out to be a link
        destinationGone,      ///< the destination was unmounted, replaced or mounted over
        differsInCaseOnly,    ///< another file of that name, spelled differently, is there
        nameTakenForAnother,  ///< another file is there whose name the drive takes for this one
        linksNotSupported,    ///< the drive can't hold symbolic links
        alreadyInTrash,
        notInTrash,        ///< the item or its record has gone since, or the record is that of another item
        neededInItsPlace,  ///< one of the machine's own folders, or a folder that holds one
        driveMounted,      ///< the item is, or holds, a place where a drive is mounted
        trashOpenToOthers, ///< the only Trash for the item belongs to somebody else, or others may change it
        tooLarge,          ///< more than the caller takes into memory
        stopped,           ///< the program is quitting
    };

    Operation operation = Operation::read;
    QString name; ///< last path component of the item, for display
    Reason reason = Reason::system;
    int code = 0; ///< `errno` where the reason is `system`

    /// A plain English sentence with the name in it; where the user has to allow the program something, one
    /// more says where.
    [[nodiscard]] QString localizedDescription() const;
    /// The same for a system that keeps programs out of some folders until the user allows it, or one that
    /// does not.
    [[nodiscard]] QString description(bool systemKeepsProgramsOut) const;

    /// Whether the reason was a full drive, an exhausted quota, too many open files or a lack of memory.
    [[nodiscard]] bool isForLackOfRoom() const;

    /// An error with the reason `system` and the given `errno` value.
    [[nodiscard]] static FileError fromCode(Operation operation, QString name, int code);

    friend bool operator==(const FileError&, const FileError&) = default;
};

/// The failed result of an operation on the item of that name (as bytes): with an `errno` value, or
/// with a reason of this program's own.
[[nodiscard]] std::unexpected<FileError> failure(FileError::Operation operation, QByteArrayView name,
                                                 int code);
[[nodiscard]] std::unexpected<FileError> failure(FileError::Operation operation, QByteArrayView name,
                                                 FileError::Reason reason);

/// The same for the item at that location.
template <typename Cause>
[[nodiscard]] std::unexpected<FileError> failure(FileError::Operation operation, const FileURL& item,
                                                 Cause cause)
{
    return failure(operation, item.nativeLastPathComponent(), cause);
}

/// The failed result ENOMEM; of a path, the last component is named. Waits for the little memory that it
/// takes itself.
[[nodiscard]] std::unexpected<FileError> outOfMemory(FileError::Operation operation, QByteArrayView path);

} // namespace keelbright
