#pragma once

#include "KeelbrightCore/platform/files/PlaceOnVolume.h"

#include <QList>
#include <optional>

namespace keelbright {

/// Where file systems are mounted, without links in the paths; empty where the system does not report
/// it. Internal to the platform folder.
[[nodiscard]] QList<FileURL> mountPoints();

/// A file system and the device, such as "/dev/sdb1", that it lies on; something else where there is none.
struct DeviceMount
{
    QByteArray device;
    FileURL point;
    FileURL folder = {}; ///< of the file system, which is shown there; empty where only a whole one can be
};

/// The same places with what is mounted there. Asks no file system, so that none can keep the caller waiting.
/// Internal to the platform folder.
[[nodiscard]] QList<DeviceMount> deviceMounts();

/// Nothing where the system does not report it. Internal to the platform folder.
[[nodiscard]] std::optional<PlaceOnVolume> placeOnVolume(const FileURL& url);

/// A place as the system's tables of mounts write it: blanks, line breaks and backslashes as a backslash and
/// three octal digits. Internal to the platform folder.
[[nodiscard]] QByteArray unescapedMountPoint(const QByteArray& text);

} // namespace keelbright
