#include "Keelbright/widgets/BalancedLabel.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace keelbright {

namespace {

constexpr int slack = 4; ///< a scaled display measures a line a little longer

} // namespace

int balancedWidth(const QFontMetrics& metrics, const QString& text, int width)
{
    const auto sizeIn = [&metrics, &text](int space) {
        return metrics.boundingRect(QRect(0, 0, space, QWIDGETSIZE_MAX), Qt::TextWordWrap, text).size();
    };
    const QSize whole = sizeIn(width);
    if (whole.width() > width)
        return width;
    int low = 0;
    int high = width;
    while (high - low > 1) {
        const int middle = (low + high) / 2;
        const QSize size = sizeIn(middle);
        if (size.width() <= middle && size.height() <= whole.height())
            high = middle;
        else
            low = middle;
    }
    return high;
}

BalancedLabel::BalancedLabel(const QString& text, FontRole font, Role color, QWidget* parent)
    : Label(text, font, color, parent)
{
    setWordWrap(true);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
}

void BalancedLabel::paintEvent(QPaintEvent*)
{
    const QRect space = contentsRect();
    const int width = std::min(balancedWidth(fontMetrics(), text(), space.width()) + slack, space.width());
    const QRect place(space.left() + (space.width() - width) / 2, space.top(), width, space.height());
    QPainter painter(this);
    style()->drawItemText(&painter, place,
                          static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap, palette(),
                          isEnabled(), text(), foregroundRole());
}

} // namespace keelbright
