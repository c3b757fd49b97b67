#pragma once

#include <QColor>
#include <QIcon>
#include <QPainterPath>
#include <QPixmap>
#include <QStringList>

class QPainter;

namespace keelbright {

/// Pictures for the symbolic icon keys of the data ("externaldrive.fill"), drawn from one icon
/// font in any colour and size. Main thread; each picture is made once and kept.
namespace Symbol {

/// Whether the key has a picture of its own.
[[nodiscard]] bool isKnown(const QString& key);
[[nodiscard]] QStringList knownKeys();

/// The picture within the square from (0, 0) to (1, 1); an empty circle for an unknown key.
[[nodiscard]] const QPainterPath& path(const QString& key);
/// Draws the picture centred in `rect`, as large as its shorter side.
void paint(QPainter& painter, const QRectF& rect, const QString& key, const QColor& color);
/// Transparent around the picture. `size` in device-independent pixels.
[[nodiscard]] QPixmap pixmap(const QString& key, int size, const QColor& color, qreal devicePixelRatio);
/// Sharp at every size and device pixel ratio; fainter while disabled.
[[nodiscard]] QIcon icon(const QString& key, const QColor& color);

} // namespace Symbol
} // namespace keelbright
