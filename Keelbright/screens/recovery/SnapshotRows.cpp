#include "Keelbright/screens/recovery/SnapshotRows.h"

namespace keelbright {

using namespace Qt::StringLiterals;

void SnapshotRows::setSnapshots(const QList<BackupSnapshot>& snapshots)
{
    beginResetModel();
    m_snapshots = snapshots;
    endResetModel();
}

int SnapshotRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_snapshots.size());
}

ListRow SnapshotRows::rowAt(int row) const
{
    ListRow shown;
    shown.picture = ListRow::Picture::tile;
    shown.symbol = u"clock.arrow.circlepath"_s;
    shown.title = m_snapshots.at(row).label();
    shown.actions = {RowAction{.id = RowActionId::open, .symbol = {}, .name = tr("Open")}};
    return shown;
}

} // namespace keelbright
