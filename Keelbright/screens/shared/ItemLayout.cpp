#include "Keelbright/screens/shared/ItemLayout.h"

namespace keelbright {

ItemLayout::ItemLayout(QWidget* parent)
    : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
}

ItemLayout::~ItemLayout()
{
    qDeleteAll(m_items);
}

void ItemLayout::addItem(QLayoutItem* item)
{
    m_items.append(item);
    invalidate();
}

QLayoutItem* ItemLayout::takeAt(int index)
{
    if (index < 0 || index >= m_items.size())
        return nullptr;
    invalidate();
    return m_items.takeAt(index);
}

} // namespace keelbright
