#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <QByteArray>
#include <expected>
#include <optional>
#include <sys/stat.h>

namespace keelbright {

/// The calls of which each operating system has a form of its own, with one meaning for all.
/// Internal to the platform folder. A failure is the `errno` value; ENOTSUP says that there is
/// no such call here and that the caller goes the long way.
namespace SystemCalls {

/// A file without a name in an open folder; of `mode` it gets what the folder and the process
/// allow.
[[nodiscard]] std::expected<FileDescriptor, int> openUnnamed(int folder, mode_t mode);
/// The permissions that the process withholds from its new files; all of them where it can't say.
[[nodiscard]] mode_t withheldPermissions();
/// Whether new files in an open folder get their permissions by a list of the folder's own
/// instead; true where it can't be told.
[[nodiscard]] bool hasDefaultAccessList(int folder);
/// Gives a file from `openUnnamed` its name; EEXIST where the name is taken.
[[nodiscard]] std::expected<void, int> nameUnnamed(int file, int folder, const char* name);
/// EEXIST where `newName` is taken. Where a file system can't look and rename in one step, it is
/// looked before.
[[nodiscard]] std::expected<void, int> renameWithoutReplacing(int oldFolder, const char* oldName,
                                                              int newFolder, const char* newName);
/// Lets `target` share the data of `source`.
[[nodiscard]] std::expected<void, int> clone(int source, int target);
/// Copies up to `count` bytes within the kernel, from and to the files' positions; 0 at the end.
[[nodiscard]] std::expected<size_t, int> copyRange(int source, int target, size_t count);
/// Copies what extended attributes both sides can hold; a failure is no error.
void copyExtendedAttributes(int source, int target);
/// Writes everything of the descriptor's file system through to the drive, and reports the
/// write-back errors since the descriptor was opened.
[[nodiscard]] std::expected<void, int> flushFileSystem(int folder);
/// Brings a file's data onto the drive.
[[nodiscard]] std::expected<void, int> flushData(int file);

/// Access, modification and change times from a status.
[[nodiscard]] timespec accessTime(const struct stat& status);
[[nodiscard]] timespec modificationTime(const struct stat& status);
[[nodiscard]] timespec changeTime(const struct stat& status);

} // namespace SystemCalls
} // namespace keelbright
