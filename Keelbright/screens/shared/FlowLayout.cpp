#include "Keelbright/screens/shared/FlowLayout.h"

#include <algorithm>

namespace keelbright {

FlowLayout::FlowLayout(int horizontalSpacing, int verticalSpacing, QWidget* parent)
    : ItemLayout(parent)
    , m_horizontalSpacing(horizontalSpacing)
    , m_verticalSpacing(verticalSpacing)
{}

int FlowLayout::horizontalSpacing(int width) const
{
    int items = 0;
    int gaps = -1;
    for (const QLayoutItem* item : this->items()) {
        if (item->isEmpty())
            continue;
        items += item->sizeHint().width();
        ++gaps;
    }
    const int closest = m_horizontalSpacing / 2;
    const bool fits = items + gaps * m_horizontalSpacing <= width;
    return !fits && items + gaps * closest <= width ? closest : m_horizontalSpacing;
}

template <typename Place> int FlowLayout::flow(const QRect& rect, Place place) const
{
    const int spacing = horizontalSpacing(rect.width());
    int x = 0;
    int y = 0;
    int lineHeight = 0;
    for (QLayoutItem* item : items()) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint().boundedTo({rect.width(), QLAYOUTSIZE_MAX});
        if (x > 0 && x + size.width() > rect.width()) {
            x = 0;
            y += lineHeight + m_verticalSpacing;
            lineHeight = 0;
        }
        place(item, QRect(rect.topLeft() + QPoint(x, y), size));
        x += size.width() + spacing;
        lineHeight = std::max(lineHeight, size.height());
    }
    return y + lineHeight;
}

int FlowLayout::heightForWidth(int width) const
{
    return flow({0, 0, width, 0}, [](QLayoutItem*, const QRect&) {});
}

void FlowLayout::setBalanced(bool isBalanced)
{
    m_isBalanced = isBalanced;
    invalidate();
}

int FlowLayout::lineWidth(int width) const
{
    const int height = heightForWidth(width);
    if (!m_isBalanced || height <= sizeHint().height())
        return width;
    constexpr int step = 4;
    int narrow = width;
    while (narrow > step && heightForWidth(narrow - step) == height)
        narrow -= step;
    return narrow;
}

QSize FlowLayout::sizeHint() const
{
    QSize hint(0, 0);
    for (const QLayoutItem* item : items()) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        hint = {hint.width() + size.width() + (hint.width() > 0 ? m_horizontalSpacing : 0),
                std::max(hint.height(), size.height())};
    }
    return hint;
}

QSize FlowLayout::minimumSize() const
{
    QSize minimum(0, 0);
    for (const QLayoutItem* item : items())
        minimum = minimum.expandedTo(item->minimumSize());
    return minimum;
}

void FlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const QRect lines(rect.topLeft(), QSize(lineWidth(rect.width()), rect.height()));
    flow(lines, [](QLayoutItem* item, const QRect& place) { item->setGeometry(place); });
}

} // namespace keelbright
