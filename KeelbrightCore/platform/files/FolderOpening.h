#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/FileError.h"

#include <expected>
#include <sys/types.h>

namespace keelbright {

/// Opening folders relative to open ones; no link is ever followed. Internal to the platform folder.

/// Whether listing a folder notes the time in it, as the system does by itself.
enum class AccessTimes {
    noted,
    kept, ///< where the system allows that: to the owner of a folder, and to root
};

/// A folder of an open one; not open, with `errno` set, where that fails (`ELOOP` or `ENOTDIR` for a
/// link).
[[nodiscard]] FileDescriptor openFolder(int parent, const char* name,
                                        AccessTimes accessTimes = AccessTimes::noted);

struct OpenedFolder
{
    FileDescriptor folder;
    bool wasCreated = false;
};

/// A folder of an open one, created with that mode where it is missing.
[[nodiscard]] std::expected<OpenedFolder, FileError> openOrCreateFolder(int parent, const QByteArray& name,
                                                                        mode_t mode = 0777);

/// The folder at `path` below an open one; what is missing on the way is created with that mode.
[[nodiscard]] std::expected<FileDescriptor, FileError> openOrCreatePath(int parent, QByteArrayView path,
                                                                        mode_t mode = 0777);

/// Removes an open folder where it is empty and still has that name in the folder around it; whether it did.
[[nodiscard]] bool removeIfEmpty(int folder, const QByteArray& name);

/// The part of `path` up to its next slash; `path` becomes what follows.
[[nodiscard]] QByteArrayView takeComponent(QByteArrayView& path);

/// Whether `path` is `folder` itself or lies below it; an empty one stands for the folder that both are
/// relative to.
[[nodiscard]] bool isAtOrBelow(QByteArrayView path, QByteArrayView folder);

} // namespace keelbright
