#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/TrashedItem.h"

#include <QList>

namespace keelbright {

/// The Trash of the platform: the freedesktop Trash on Linux (the home Trash, and the two kinds
/// of Trash at the top of another volume), the system's own on macOS.
namespace Trash {

/// Moves one file, link or folder to the Trash of its volume, and says what `putBack` needs.
///
/// `homeTrash` is the folder that holds `files` and `info` for items on the home's volume; it is
/// created on first use. An item is either moved, with its record on the drive, or left where it
/// was; it is never copied to another volume. What already lies in a Trash is refused, and so is what
/// is or holds one of the `protectedPlaces`, a mount point or a Trash, whatever path leads there. On a
/// volume the item goes only to a Trash that belongs to the user and that others can't change.
[[nodiscard]] std::expected<TrashedItem, FileError> moveToTrash(const FileURL& item, const FileURL& homeTrash,
                                                                const QList<FileURL>& protectedPlaces);

/// Fails where the item no longer lies in the Trash as it was moved there: the Trash was emptied, or another
/// program has put the item back.
[[nodiscard]] std::expected<void, FileError> checkIsThere(const TrashedItem& item);

/// Moves the item back to its old place, whose folder must exist, and removes its record then. Fails rather
/// than replaces, and where `checkIsThere` fails.
[[nodiscard]] std::expected<void, FileError> putBack(const TrashedItem& item);

} // namespace Trash
} // namespace keelbright
