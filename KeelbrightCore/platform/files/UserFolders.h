#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QHash>

namespace keelbright {

class FileManager;

/// The folders that the user has chosen for documents, pictures and the like, as "user-dirs.dirs"
/// among the desktop's settings has them, by their names there ("DOCUMENTS", "VIDEOS"…); empty without
/// such a file. A folder that the user has switched off is the home itself. Internal to the platform
/// folder.
[[nodiscard]] QHash<QByteArray, FileURL> userFolders(const FileManager& files);

} // namespace keelbright
