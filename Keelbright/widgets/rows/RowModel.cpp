#include "Keelbright/widgets/rows/RowModel.h"

#include "Keelbright/widgets/DisplayText.h"

namespace keelbright {

using namespace Qt::StringLiterals;

QString RowModel::headerAt(int) const
{
    return {};
}

QString RowModel::titleAt(int row) const
{
    return rowAt(row).title;
}

QString RowModel::accessibleText(int row) const
{
    const ListRow shown = rowAt(row);
    QStringList parts;
    for (const QString& text : {shown.rank, shown.title, shown.tag, shown.aside, shown.detail, shown.capsule,
                                shown.value, shown.toolTip}) {
        if (!text.isEmpty())
            parts.append(displayText(text));
    }
    return parts.join(", "_L1);
}

QVariant RowModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int row = index.row();
    const QString header = headerAt(row);
    if (role == headerRole)
        return header;
    if (role == Qt::DisplayRole)
        return header.isEmpty() ? titleAt(row) : header;
    if (role == Qt::AccessibleTextRole)
        return header.isEmpty() ? accessibleText(row) : header;
    if (role == Qt::CheckStateRole && header.isEmpty()) {
        const ListRow shown = rowAt(row);
        return shown.mark == ListRow::Mark::none ? QVariant() : QVariant(shown.markState);
    }
    return {};
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    if (!headerAt(index.row()).isEmpty())
        return Qt::ItemNeverHasChildren;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    // `setData` does nothing: a press on a mark is a signal of the view.
    flags.setFlag(Qt::ItemIsUserCheckable, index.data(Qt::CheckStateRole).isValid());
    return flags;
}

void RowModel::announceRows(int first, int last)
{
    if (first <= last)
        Q_EMIT dataChanged(index(first), index(last));
}

void RowModel::announceAllRows()
{
    announceRows(0, rowCount() - 1);
}

} // namespace keelbright
