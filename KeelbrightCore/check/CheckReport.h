#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>
#include <array>
#include <memory>
#include <optional>

namespace keelbright {

class ChecksumSpool;

/// What a check has found out about one file.
enum class CopyVerdict {
    same,
    changedSince, ///< the original has another size or is newer: no fault
    differs,      ///< though nothing was changed: a fault
    unreadable,   ///< the copy, or a folder of copies: a fault
    onlyOnDrive,  ///< there is no original any more
    notBackedUp,  ///< there is no copy yet
    originalUnreadable,
};

/// A file or folder that a person should know of.
struct CheckFinding
{
    enum class Reason {
        system,            ///< see `error`
        differsFromSource, ///< though the original has not changed since the backup
        differsFromList,   ///< of checksums, though the copy was not written since
        readInTwoWays,     ///< differed from the original once, and not when both were read again
    };

    CopyVerdict verdict = CopyVerdict::differs;
    FileURL item; ///< the copy; of an original that can't be read and has no copy, itself
    Reason reason = Reason::system;
    std::optional<FileError> error;
};

/// The result of a check, whole or as far as it came.
struct CheckReport
{
    enum class End {
        complete,
        cancelled,
        driveGone, ///< pulled out, unmounted or replaced in the middle
        failed,    ///< it could not begin, or memory ran out for it: see `error`
    };

    End end = End::complete;
    std::optional<FileError> error;
    bool isAgainstList = false;
    FileURL deviceFolder;         ///< of the machine whose copies were checked
    FileURL personalFiles;        ///< the folder of the copies
    qint64 copies = 0;            ///< files and links on the drive, as far as they can be listed
    qint64 checked = 0;           ///< of these
    qint64 unknownLines = 0;      ///< of the list
    qint64 unreadableFolders = 0; ///< of the unreadable items
    bool isFromDrive = true;      ///< false where the copies may have been read from memory
    QList<CheckFinding> findings;
    /// The checksums of all files that could be read and are no fault; null where they could not be kept.
    std::shared_ptr<ChecksumSpool> checksums;
    std::array<qint64, 7> counts = {}; ///< of the items with each verdict

    [[nodiscard]] qint64 count(CopyVerdict verdict) const { return counts[static_cast<size_t>(verdict)]; }

    void add(CopyVerdict verdict, qint64 number = 1) { counts[static_cast<size_t>(verdict)] += number; }

    /// Keeps the finding and counts it.
    void add(const CheckFinding& finding);

    /// How many copies are damaged or can't be read.
    [[nodiscard]] qint64 faults() const
    {
        return count(CopyVerdict::differs) + count(CopyVerdict::unreadable);
    }
};

} // namespace keelbright
