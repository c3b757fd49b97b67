#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/files/TrashFolder.h"
#include "KeelbrightCore/platform/files/TrashedItem.h"

#include <QList>
#include <optional>

namespace keelbright {

class FileManager;

// What the Trash of each operating system is made of. Internal to the platform folder.

/// The Trash of the home on this operating system, whether it is there yet or not.
[[nodiscard]] FileURL homeTrashOf(const FileManager& files);

// What `Trash` asks for, in the Trash of this operating system.
[[nodiscard]] std::expected<TrashedItem, FileError>
moveToSystemTrash(const FileURL& item, const FileURL& homeTrash, const QList<FileURL>& protectedPlaces);
[[nodiscard]] bool isInSystemTrash(const TrashedItem& item);
[[nodiscard]] std::expected<void, FileError> putBackFromSystemTrash(const TrashedItem& item);

/// `cause` is an `errno` value or a reason of this program's own.
[[nodiscard]] std::unexpected<FileError> notTrashed(const FileURL& item, auto cause)
{
    return failure(FileError::Operation::trashed, item, cause);
}

[[nodiscard]] std::unexpected<FileError> notPutBack(const TrashedItem& item, auto cause)
{
    return failure(FileError::Operation::restored, item.origin, cause);
}

/// Why its place keeps an item from the Trash: it lies in a Trash, is one, or holds the one of the home.
/// Nothing where it may go. `location` has no link in the path of its folder; `onVolume` is how it lies to
/// the Trash of its volume.
[[nodiscard]] std::optional<FileError::Reason>
reasonForTrashPlace(const FileURL& location, const FileURL& homeTrash, TrashRelation onVolume);

/// How an item lies to the Trash that macOS keeps at the top of a volume, a folder for each user in
/// ".Trashes".
[[nodiscard]] TrashRelation relationToTrashes(const FileURL& location);

/// The `errno` value for an error of the Cocoa domain; EPERM for those that say no more.
[[nodiscard]] int codeOfCocoaError(long code);

} // namespace keelbright
