#pragma once

#include "Keelbright/widgets/Label.h"

namespace keelbright {

/// The narrowest width in which a wrapped text has no more lines than in `width`, and in which each of its
/// words still fits where it fits into `width`.
[[nodiscard]] int balancedWidth(const QFontMetrics& metrics, const QString& text, int width);

/// A wrapping label whose lines are about equally long, for the few centred lines of an empty page: no last
/// line holds one word alone. Its size is that of any wrapping label; only the painting differs.
class BalancedLabel : public Label
{
    Q_OBJECT

public:
    BalancedLabel(const QString& text, FontRole font, Role color, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace keelbright
