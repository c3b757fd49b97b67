#pragma once

#include "Keelbright/widgets/rows/RowModel.h"

#include <algorithm>

namespace keelbright {

/// The items of a list as rows, one each.
template <typename Item> class ItemRowModel : public RowModel
{
public:
    using RowModel::RowModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_items.size());
    }

    [[nodiscard]] const QList<Item>& items() const { return m_items; }

    [[nodiscard]] const Item& itemAt(int row) const { return m_items.at(row); }

    /// The row of the item with this `id`; -1 for none.
    template <typename ID> [[nodiscard]] int rowOf(const ID& id) const
    {
        const auto found = std::ranges::find_if(m_items, [&id](const Item& item) { return item.id == id; });
        return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
    }

    /// False, and nothing done, where these are the items already.
    bool setItems(const QList<Item>& items)
    {
        if (m_items == items)
            return false;
        beginResetModel();
        m_items = items;
        prepareRows();
        endResetModel();
        return true;
    }

protected:
    /// Follows each change of the items, before anybody asks for their rows.
    virtual void prepareRows() {}

private:
    QList<Item> m_items;
};

} // namespace keelbright
