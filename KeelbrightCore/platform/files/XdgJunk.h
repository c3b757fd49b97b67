#pragma once

#include "KeelbrightCore/platform/files/JunkPlaces.h"

namespace keelbright {

class FileManager;

/// Internal to `MachinePlaces`.
[[nodiscard]] JunkPlaces xdgJunkPlaces(const FileManager& files);
/// What the quick estimate adds up; none of the places lies below another. Internal to `MachinePlaces`.
[[nodiscard]] QList<FileURL> xdgJunkEstimate(const FileManager& files);

} // namespace keelbright
