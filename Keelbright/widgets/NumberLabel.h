#pragma once

#include "Keelbright/widgets/Label.h"

class QFontMetricsF;

namespace keelbright {

/// Draws all digits with the same width, so that a counting number does not jitter and columns line
/// up. (The font has such digits, but this version of the toolkit can't select a font's features.)
namespace TabularDigits {

[[nodiscard]] double width(const QFont& font, const QString& text);
/// Draws on one line within `rect`, aligned left, right or centred, in the painter's pen.
void paint(QPainter& painter, const QRectF& rect, Qt::Alignment alignment, const QFont& font,
           const QString& text);

} // namespace TabularDigits

/// A number with its unit ("1.64 GB"), in tabular digits. Never cut.
class NumberLabel : public Label
{
    Q_OBJECT

public:
    NumberLabel(const QString& text, FontRole font, Role color, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace keelbright
