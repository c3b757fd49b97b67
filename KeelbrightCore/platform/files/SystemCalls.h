#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QByteArray>
#include <expected>
#include <optional>
#include <sys/stat.h>

namespace keelbright {

/// System calls that differ between operating systems, with one meaning for all. Internal to the
/// platform folder. A failure is the `errno` value; ENOTSUP means that the operating system or the
/// file system has no such call, and that the caller has to do without.
namespace SystemCalls {

/// A file without a name in an open folder. It gets the permissions of `mode` that the folder and
/// the process allow.
[[nodiscard]] std::expected<FileDescriptor, int> openUnnamed(int folder, mode_t mode);
/// The permissions that new files of the process do not get; 0777 where that can't be read.
[[nodiscard]] mode_t processUmask();
/// Whether new files in an open folder get their permissions by a list of the folder's own
/// instead; true where that can't be read.
[[nodiscard]] bool hasDefaultAccessList(int folder);
/// Gives a file from `openUnnamed` its name; EEXIST where the name is taken.
[[nodiscard]] std::expected<void, int> nameUnnamed(int file, int folder, const char* name);
/// A descriptor that gives no access to the file or link, but keeps its room on the drive until it is closed,
/// also when the name is gone.
[[nodiscard]] std::expected<FileDescriptor, int> holdFile(int folder, const char* name);
/// EEXIST where `newName` is taken; ENOTSUP where the file system can't do that in one step.
[[nodiscard]] std::expected<void, int> renameInOneStep(int oldFolder, const char* oldName, int newFolder,
                                                       const char* newName);
/// EEXIST where `newName` is taken. Where a file system can't do that in one step, `newName` is looked
/// for before.
[[nodiscard]] std::expected<void, int> renameWithoutReplacing(int oldFolder, const char* oldName,
                                                              int newFolder, const char* newName);
/// Lets `target` share the data of `source`.
[[nodiscard]] std::expected<void, int> clone(int source, int target);
/// Makes a file of that name in an open folder which shares all data of an open file and has its attributes.
/// ENOTSUP or EXDEV where the two file systems can't do that, EINVAL where that one file can't be shared.
[[nodiscard]] std::expected<void, int> cloneFile(int source, int folder, const char* name);
/// Copies up to `count` bytes within the kernel, from and to the files' positions; 0 at the end.
[[nodiscard]] std::expected<size_t, int> copyRange(int source, int target, size_t count);
/// Copies what extended attributes both sides can hold; a failure is no error.
void copyExtendedAttributes(int source, int target);
/// Gives a copy the creation date and the marks of its source that only this operating system has; to be
/// called after its times have been set. What the drive can't hold is no error.
void copySystemFacts(const struct stat& source, int copy);
/// Removes the access lists that a file or a folder has got from the folder around it.
void removeAccessLists(int file);
/// Writes everything of the file system of an open folder through to the drive, and reports the write-back
/// errors since the folder was opened. On a drive that can't do that, what the folder itself needs.
[[nodiscard]] std::expected<void, int> flushFileSystem(int folder);
/// Brings a file's data onto the drive.
[[nodiscard]] std::expected<void, int> flushData(int file);
/// Begins to write a file's data to the drive and does not wait; a failure is reported by the next call.
void startWriting(int file);
/// Returns when a file's data has been written, so that no change of a name that is made afterwards
/// reaches the drive before it. Costs less than `flushData`: the drive's own cache is not emptied.
[[nodiscard]] std::expected<void, int> waitUntilWritten(int file);
/// Whether the file system of an open folder needs no such wait before a file replaces another one.
[[nodiscard]] bool writesDataBeforeNames(int folder);

/// The number by which the system's table of mounts knows the one that holds the file; nothing where it
/// does not say.
[[nodiscard]] std::optional<quint64> mountId(const char* path);
/// Whether something is mounted on the folder of that name; false where the system does not say.
[[nodiscard]] bool isMountPoint(int folder, const char* name);

/// The logical size in bytes of an entry of an open folder, links not followed; nothing where it can't be
/// read.
[[nodiscard]] std::optional<qint64> sizeOf(int folder, const char* name);

/// Whether a file has its data on this machine; false where only a cloud provider has it.
[[nodiscard]] bool hasItsData(const struct stat& status);

/// Access, modification and change times from a status.
[[nodiscard]] timespec accessTime(const struct stat& status);
[[nodiscard]] timespec modificationTime(const struct stat& status);
[[nodiscard]] timespec changeTime(const struct stat& status);

} // namespace SystemCalls
} // namespace keelbright
