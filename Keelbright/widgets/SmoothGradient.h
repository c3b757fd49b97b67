#pragma once

#include <QColor>
#include <QImage>
#include <QSize>

namespace keelbright {

/// A gradient from left to right in which no bands can be seen: between two colours that a screen can show,
/// the pixels take the one or the other in a fine pattern. Both colours are opaque; the size is in pixels.
[[nodiscard]] QImage smoothGradient(const QSize& size, const QColor& left, const QColor& right);

} // namespace keelbright
