#pragma once

#include <QColor>
#include <QList>
#include <QRectF>
#include <QString>

class QWidget;

namespace keelbright::testing {

/// A text as a widget paints it in one go.
struct PaintedText
{
    QString text;
    QRectF rect; ///< of the whole line box, in the widget's coordinates
    QColor color;
};

/// The texts that the widget itself paints, without its children, whether or not something lies
/// above them. Symbols are no texts.
[[nodiscard]] QList<PaintedText> textsPaintedBy(QWidget& widget);

} // namespace keelbright::testing
