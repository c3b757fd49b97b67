#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

/// Where a file or folder lies below the top of its own file system, whatever that is mounted as: a folder
/// that is mounted a second time has one place.
struct PlaceOnVolume
{
    QByteArray volume; ///< the system's name for the file system
    FileURL path;      ///< without links
    friend bool operator==(const PlaceOnVolume&, const PlaceOnVolume&) = default;
};

/// Whether the path is that of the folder or goes on below it, component by component.
[[nodiscard]] inline bool isAtOrBelow(const FileURL& url, const FileURL& folder)
{
    const QByteArray& path = url.nativePath();
    const QByteArray& start = folder.nativePath();
    return path == start || path.startsWith(start.endsWith('/') ? start : start + '/');
}

/// Whether the place is that of the folder or lies below it.
[[nodiscard]] inline bool isAtOrBelow(const PlaceOnVolume& place, const PlaceOnVolume& folder)
{
    return place.volume == folder.volume && isAtOrBelow(place.path, folder.path);
}

} // namespace keelbright
