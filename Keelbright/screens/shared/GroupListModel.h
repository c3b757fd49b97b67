#pragma once

#include "Keelbright/widgets/rows/ItemRowModel.h"

namespace keelbright {

/// Groups of items as rows that can be ticked as a whole, such as kinds of junk or categories of files.
template <typename Group> class GroupListModel : public ItemRowModel<Group>
{
public:
    using ItemRowModel<Group>::ItemRowModel;

    [[nodiscard]] ListRow rowAt(int row) const override { return m_rows.at(row); }

    [[nodiscard]] QString titleAt(int row) const override { return m_rows.at(row).title; }

    /// Shows these groups, and how much of each is ticked now.
    void setGroups(const QList<Group>& groups)
    {
        if (this->setItems(groups))
            return;
        for (int row = 0; row < m_rows.size(); ++row) {
            const Qt::CheckState state = markOf(groups.at(row));
            if (std::exchange(m_rows[row].markState, state) != state)
                this->announceRows(row, row);
        }
    }

protected:
    /// The row without its mark; asked for once, as the size of a group takes a walk over its items.
    [[nodiscard]] virtual ListRow makeRow(const Group& group) const = 0;
    [[nodiscard]] virtual Qt::CheckState markOf(const Group& group) const = 0;

    void prepareRows() override
    {
        m_rows.clear();
        for (const Group& group : this->items()) {
            ListRow row = makeRow(group);
            row.mark = ListRow::Mark::circle;
            row.markState = markOf(group);
            m_rows.append(row);
        }
    }

private:
    QList<ListRow> m_rows;
};

} // namespace keelbright
