#pragma once

#include "Keelbright/widgets/rows/RowModel.h"
#include "KeelbrightCore/storage/UndoService.h"

namespace keelbright {

/// What an undo could not put back as rows: where it was, and why it stays away.
class UndoFailureModel : public RowModel
{
    Q_OBJECT

public:
    using RowModel::RowModel;

    void setFailures(const QList<UndoFailure>& failures);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

private:
    QList<UndoFailure> m_failures;
};

} // namespace keelbright
