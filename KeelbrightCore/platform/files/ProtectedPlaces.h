#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>
#include <optional>
#include <sys/stat.h>

namespace keelbright {

class FileManager;

/// What no operation may move to the Trash, whatever it was asked for. Internal to the platform folder.
namespace ProtectedPlaces {

/// The home with its standard folders, those that programs keep their data and settings in, and the
/// Trash. What lies in such a folder is not among them.
[[nodiscard]] QList<FileURL> of(const FileManager& files);

/// Why an item has to stay; nothing where it may go. It has to stay where it is one of `places` or a
/// mount point, under whatever path, and where it holds one. `location` has no link in the path of its
/// folder; `status` is that of the item itself, links not followed.
[[nodiscard]] std::optional<FileError::Reason>
reasonToStay(const FileURL& location, const struct stat& status, const QList<FileURL>& places);

} // namespace ProtectedPlaces
} // namespace keelbright
