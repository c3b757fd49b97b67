#pragma once

#include "KeelbrightCore/platform/files/MountPoints.h"
#include "KeelbrightCore/platform/files/MountedVolume.h"

namespace keelbright {

class FileManager;

/// Those of the mounts that are drives for people: they lie below one of the folders for that, and no network
/// is behind them, which could keep whoever looks at them waiting. By label. Internal to the platform folder.
[[nodiscard]] QList<MountedVolume> volumesAmong(const QList<DeviceMount>& mounts, const FileManager& files);

} // namespace keelbright
