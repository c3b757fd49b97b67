#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QByteArray>
#include <QImage>

namespace keelbright {

/// Reads the icons of applications from their bundles, whose content is not trusted. Any thread but the
/// main one, as reading may block.
namespace AppIconFile {

/// A larger file is ignored; one with a picture of every size takes some megabytes.
inline constexpr qint64 maximumBytes = qint64{32} * 1024 * 1024;
/// A picture with a longer side is ignored.
inline constexpr int maximumSide = 2048;

/// The icon that the bundle names, or the picture itself where the location is that of a picture, as a
/// square of that many pixels; null if there is none or none that can be read.
[[nodiscard]] QImage read(const FileURL& source, int side);

/// The picture scaled into the middle of a square of that many pixels.
[[nodiscard]] QImage asSquare(const QImage& picture, int side);

/// The picture of an `.icns` file that is best for a square of that many pixels, scaled to it; null if
/// there is none.
[[nodiscard]] QImage decode(const QByteArray& icns, int side);

} // namespace AppIconFile
} // namespace keelbright
