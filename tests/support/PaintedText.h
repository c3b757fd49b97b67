#pragma once

#include <QColor>
#include <QList>
#include <QRectF>
#include <QString>

class QWidget;

namespace keelbright::testing {

/// A run of words as a widget paints it.
struct PaintedText
{
    QString text;
    QRectF rect; ///< of the whole line box, in the widget's coordinates
    QColor color;
};

/// The words that the widget itself paints, without its children, whether or not something lies
/// above them. Symbols are no words.
[[nodiscard]] QList<PaintedText> textsPaintedBy(QWidget& widget);

} // namespace keelbright::testing
