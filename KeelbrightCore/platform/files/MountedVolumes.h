#pragma once

#include "KeelbrightCore/platform/files/MountPoints.h"
#include "KeelbrightCore/platform/files/MountedVolume.h"

namespace keelbright {

class FileManager;

/// The mounts that are a user's drives: they lie below one of the folders for drives, and not on a network,
/// which could keep the caller waiting. Sorted by label. Internal to the platform folder.
[[nodiscard]] QList<MountedVolume> volumesAmong(const QList<DeviceMount>& mounts, const FileManager& files);

/// The places of all file systems on devices of this machine, each once: one that is shown in several places
/// has the first of them. Internal to the platform folder.
[[nodiscard]] QList<FileURL> topsAmong(const QList<DeviceMount>& mounts);

} // namespace keelbright
