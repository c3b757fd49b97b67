#include "Keelbright/screens/undo/UndoFailureModel.h"

namespace keelbright {

using namespace Qt::StringLiterals;

void UndoFailureModel::setFailures(const QList<UndoFailure>& failures)
{
    beginResetModel();
    m_failures = failures;
    endResetModel();
}

int UndoFailureModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_failures.size());
}

ListRow UndoFailureModel::rowAt(int row) const
{
    ListRow shown;
    shown.picture = ListRow::Picture::tile;
    shown.symbol = u"exclamationmark.triangle.fill"_s;
    shown.symbolColor = Role::orange;
    shown.title = titleAt(row);
    shown.detail = m_failures.at(row).reason;
    shown.detailElide = Qt::ElideMiddle; // the sentence begins with the name and ends with the reason
    return shown;
}

QString UndoFailureModel::titleAt(int row) const
{
    return m_failures.at(row).origin.path();
}

} // namespace keelbright
