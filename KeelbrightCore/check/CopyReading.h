#pragma once

#include "KeelbrightCore/check/ContentComparison.h"
#include "KeelbrightCore/check/Sha256.h"
#include "KeelbrightCore/platform/files/TreeSums.h"

namespace keelbright {

class CheckProgress;

/// What reading the whole of a copy has given.
struct CopyReading
{
    int code = 0;           ///< the `errno` value where it could not be read
    bool endsEarly = false; ///< before its size says so
    bool isFromDrive = true;
    QByteArray digest; ///< SHA-256
};

/// Takes the pieces of a copy after its `begin`, with this status, to their end: compares them where there is
/// a comparison, and adds up their checksum. Once it is cancelled, it stops in the middle, and what it gives
/// means nothing.
[[nodiscard]] CopyReading readCopy(CopyReadAhead& pieces, const ItemStatus& status,
                                   ContentComparison* comparison, Sha256& checksum, CheckProgress& progress,
                                   const Cancellation& cancellation);

/// How many items are read at a time: in the order in which they lie on the drive, as far as that is known.
inline constexpr qsizetype itemsAtATime = 4096;

/// Whether an item is not there, rather than unreadable.
[[nodiscard]] bool isMissing(int code);

/// The options of every walk of a check.
inline constexpr auto walkOptions =
    DirectoryEnumerator::Option::skipsHiddenFiles | DirectoryEnumerator::Option::keepsAccessTimes;

/// Where all copies lie: "Personal Files" itself, and the hidden folders in it, which a walk of it passes
/// over. They are of sources whose own names are hidden.
[[nodiscard]] QList<FileURL> foldersOfCopies(const FileURL& personalFiles);

enum class Links { counted, leftOut };

/// How many copies lie in all of them, and their size.
[[nodiscard]] TreeSum countCopies(const FileURL& personalFiles, Links links,
                                  const Cancellation& cancellation);

} // namespace keelbright
