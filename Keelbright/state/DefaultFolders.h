#pragma once

#include "KeelbrightCore/backup/RecommendedFolder.h"

#include <QList>

namespace keelbright {

/// The folders that are recommended for a backup, in the order of the screens and with new ids at
/// each call; those that a new user has selected are enabled.
[[nodiscard]] QList<RecommendedFolder> defaultRecommendedFolders();

} // namespace keelbright
