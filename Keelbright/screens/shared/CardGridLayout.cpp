#include "Keelbright/screens/shared/CardGridLayout.h"

#include "Keelbright/widgets/theme/Roles.h"

#include <algorithm>

namespace keelbright {

CardGridLayout::CardGridLayout(QWidget* parent)
    : ItemLayout(parent)
{
    setSpacing(Metrics::cardSpacing);
}

int CardGridLayout::minimumColumnWidth() const
{
    int width = 0;
    for (const QLayoutItem* item : items())
        width = std::max(width, item->minimumSize().width());
    return width;
}

int CardGridLayout::rowHeight() const
{
    int height = 0;
    for (const QLayoutItem* item : items())
        height = std::max(height, item->sizeHint().height());
    return height;
}

int CardGridLayout::columnsWithin(int width) const
{
    const int cell = minimumColumnWidth() + spacing();
    for (int columns = count(); columns > 1; --columns) {
        // Rows of unequal length would leave a hole.
        if (count() % columns == 0 && columns * cell - spacing() <= width)
            return columns;
    }
    return 1;
}

int CardGridLayout::heightForWidth(int width) const
{
    if (items().isEmpty())
        return 0;
    const int rows = count() / columnsWithin(width);
    return rows * (rowHeight() + spacing()) - spacing();
}

QSize CardGridLayout::sizeHint() const
{
    const int width = count() * (minimumColumnWidth() + spacing()) - spacing();
    return {std::max(0, width), rowHeight()};
}

QSize CardGridLayout::minimumSize() const
{
    return {minimumColumnWidth(), rowHeight()};
}

void CardGridLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const int columns = columnsWithin(rect.width());
    const int height = rowHeight();
    for (int i = 0; i < count(); ++i) {
        const int column = i % columns;
        // Whole pixels that add up to exactly the width of the row.
        const int left = column * (rect.width() + spacing()) / columns;
        const int right = (column + 1) * (rect.width() + spacing()) / columns - spacing();
        const int top = (i / columns) * (height + spacing());
        items().at(i)->setGeometry({rect.left() + left, rect.top() + top, right - left, height});
    }
}

} // namespace keelbright
