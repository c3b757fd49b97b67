#pragma once

#include "KeelbrightCore/platform/files/JunkPlaces.h"

namespace keelbright {

/// Internal to `MachinePlaces`.
[[nodiscard]] JunkPlaces macJunkPlaces(const FileURL& home);
/// What the quick estimate of a Mac adds up. Internal to `MachinePlaces`.
[[nodiscard]] QList<FileURL> macJunkEstimate(const FileURL& home);

} // namespace keelbright
