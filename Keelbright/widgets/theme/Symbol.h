#pragma once

#include <QColor>
#include <QIcon>
#include <QPainterPath>
#include <QString>

class QPainter;

namespace keelbright {

/// Pictures for the symbolic icon keys of the data ("externaldrive.fill"), drawn from one icon font
/// in any colour and size. `symbolTable()` lists the keys. Main thread; each picture is made once and
/// kept.
namespace Symbol {

/// The picture within the square from (0, 0) to (1, 1); an empty circle for an unknown key.
[[nodiscard]] const QPainterPath& path(const QString& key);
/// Draws the picture centred in `rect`, as large as its shorter side.
void paint(QPainter& painter, const QRectF& rect, const QString& key, const QColor& color);
/// Sharp at every size and device pixel ratio; fainter while disabled.
[[nodiscard]] QIcon icon(const QString& key, const QColor& color);

} // namespace Symbol
} // namespace keelbright
