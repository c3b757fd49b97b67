#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>

namespace keelbright {

/// The Trash of the platform: the freedesktop Trash on Linux (the home Trash, and the two kinds
/// of Trash at the top of another volume), the system's own on macOS.
namespace Trash {

/// Moves one file, link or folder to the Trash of its volume and gives its new place.
///
/// `homeTrash` is the folder that holds `files` and `info` for items on the home's volume; it is
/// created on first use. An item is either moved, with its record on the drive, or left where it
/// was; it is never copied to another volume. What already lies in a Trash is refused, and so is what
/// is or holds one of the `protectedPlaces`, a mount point or a Trash, whatever path leads there. On a
/// volume the item goes only to a Trash that belongs to the user and that others can't change.
[[nodiscard]] std::expected<FileURL, FileError> moveToTrash(const FileURL& item, const FileURL& homeTrash,
                                                            const QList<FileURL>& protectedPlaces);

} // namespace Trash
} // namespace keelbright
