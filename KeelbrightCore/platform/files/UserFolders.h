#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QList>

namespace keelbright {

class FileManager;

/// The folders that the user has chosen for documents, pictures and the like, as "user-dirs.dirs"
/// among the desktop's settings has them; empty without such a file. Internal to the platform folder.
[[nodiscard]] QList<FileURL> userFolders(const FileManager& files);

} // namespace keelbright
