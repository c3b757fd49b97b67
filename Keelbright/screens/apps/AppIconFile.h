#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QByteArray>
#include <QImage>

namespace keelbright {

/// The pictures of applications as they lie in their bundles. The input is not trusted. Any thread
/// but the main one: reading a bundle may take its time.
namespace AppIconFile {

/// A larger file is passed over; a picture of every size takes some megabytes.
inline constexpr qint64 maximumBytes = qint64{32} * 1024 * 1024;
/// Neither is a picture with a longer side decoded.
inline constexpr int maximumSide = 2048;

/// The icon that the bundle names as its own, as a square of that many pixels; null where it names
/// none, or none that can be read.
[[nodiscard]] QImage read(const FileURL& bundle, int side);

/// The picture in the content of an `.icns` file that serves best for a square of that many pixels,
/// scaled to it; null where there is none.
[[nodiscard]] QImage decode(const QByteArray& icns, int side);

} // namespace AppIconFile
} // namespace keelbright
