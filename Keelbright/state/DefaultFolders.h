#pragma once

#include "KeelbrightCore/backup/RecommendedFolder.h"

#include <QList>

namespace keelbright {

/// The folders that are recommended for a backup, in the order of the screens and with new ids at
/// each call; those that a new user has selected are enabled, unless the user has switched the folder off
/// in the desktop's settings. Looks where the user has put them: two small files of settings are read.
[[nodiscard]] QList<RecommendedFolder> defaultRecommendedFolders();

} // namespace keelbright
