#pragma once

#include "Keelbright/widgets/rows/ItemRowModel.h"
#include "KeelbrightCore/apps/AppLeftover.h"

namespace keelbright {

/// What an application left around, as rows.
class LeftoverListModel : public ItemRowModel<AppLeftover>
{
    Q_OBJECT

public:
    using ItemRowModel::ItemRowModel;

    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;
};

} // namespace keelbright
