#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QtGlobal>
#include <expected>

namespace keelbright {

// Calls around reading that differ between operating systems, with one meaning for all. Internal to the
// platform folder. A failure is the `errno` value.

/// Opens an entry of an open folder, or a path with `AT_FDCWD`, so that reading it leaves its access time
/// as it is where the system allows that: to the owner of a file, and to root. All others could not put
/// the time back either. Not open, with `errno` set, where that fails.
[[nodiscard]] FileDescriptor openKeepingAccessTime(int folder, const char* name, int flags);

/// What offset, size and memory of direct reads are multiples of: the blocks of every drive fit into it.
inline constexpr qint64 directAlignment = qint64{64} * 1024;

/// From now on reads of an open file go straight to the drive, past what the system remembers. Fails where
/// the file system has no such way.
[[nodiscard]] std::expected<void, int> readDirectly(int file);
/// From now on reads of an open file take what the system remembers.
void readThroughMemory(int file);
/// Lets the system forget what it remembers of a file's data; what is not on the drive yet stays.
void forgetData(int file);
/// Whether the system remembers the data at the beginning of a file; true where it does not say.
[[nodiscard]] bool remembersData(int file);
/// Whether an open file or folder lies on a drive of this machine that reads can be made to reach: not in
/// memory, not behind a network or another program.
[[nodiscard]] bool liesOnLocalDrive(int file);
/// Whether the drive of an open file or folder was taken away while its file system stays mounted; false
/// where the system does not say.
[[nodiscard]] bool isDriveTakenAway(int file);
/// Lets the system read ahead what follows `offset`.
void readAhead(int file, qint64 offset, qint64 size);
/// Where the next data of a file begins, at `offset` or after it; `end`, the size of the file, where only
/// a hole follows; `offset` where the file system does not say.
[[nodiscard]] qint64 nextData(int file, qint64 offset, qint64 end);

} // namespace keelbright
