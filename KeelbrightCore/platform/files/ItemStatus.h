#pragma once

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"

#include <QByteArray>
#include <expected>
#include <sys/stat.h>

namespace keelbright {

/// What the file system says of one item, links not followed.
struct ItemStatus
{
    EntryType type = EntryType::other;
    qint64 size = 0;         ///< logical, in bytes
    qint64 allocated = 0;    ///< what it takes on the drive, in bytes
    qint64 modification = 0; ///< the last change of its data, in nanoseconds since 1970
    qint64 change = 0;       ///< the last change of anything of it, which no program can set

    friend bool operator==(const ItemStatus&, const ItemStatus&) = default;
};

/// The status of an entry of an open folder; the `errno` value where that can't be read.
[[nodiscard]] std::expected<ItemStatus, int> itemStatus(int folder, const char* name);
/// The status of an open file.
[[nodiscard]] std::expected<ItemStatus, int> itemStatus(int file);

/// Whether nothing of a file has changed between the one status and the other, as far as its size and the
/// time of its last change show.
[[nodiscard]] bool isUnchanged(const struct stat& before, const struct stat& after);
/// The same without the size.
[[nodiscard]] bool hasSameChangeTime(const struct stat& before, const struct stat& after);

[[nodiscard]] EntryType typeOfMode(mode_t mode);

/// Where a symbolic link leads; the `errno` value where that can't be read.
[[nodiscard]] std::expected<QByteArray, int> linkTarget(int folder, const QByteArray& name);

} // namespace keelbright
