#pragma once

#include "Keelbright/widgets/rows/RowModel.h"
#include "KeelbrightCore/backup/BackupSnapshot.h"

namespace keelbright {

/// Dated backups as rows, each with a button that opens it.
class SnapshotRows : public RowModel
{
    Q_OBJECT

public:
    using RowModel::RowModel;

    void setSnapshots(const QList<BackupSnapshot>& snapshots);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;

private:
    QList<BackupSnapshot> m_snapshots;
};

} // namespace keelbright
