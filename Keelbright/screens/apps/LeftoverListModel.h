#pragma once

#include "Keelbright/widgets/rows/RowModel.h"
#include "KeelbrightCore/apps/AppLeftover.h"

namespace keelbright {

/// What an application left around, as rows.
class LeftoverListModel : public RowModel
{
    Q_OBJECT

public:
    using RowModel::RowModel;

    void setLeftovers(const QList<AppLeftover>& leftovers);

    [[nodiscard]] const QList<AppLeftover>& leftovers() const { return m_leftovers; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

private:
    QList<AppLeftover> m_leftovers;
};

} // namespace keelbright
