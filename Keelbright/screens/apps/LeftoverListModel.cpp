#include "Keelbright/screens/apps/LeftoverListModel.h"

#include <QCoreApplication>

namespace keelbright {

using namespace Qt::StringLiterals;

void LeftoverListModel::setLeftovers(const QList<AppLeftover>& leftovers)
{
    beginResetModel();
    m_leftovers = leftovers;
    endResetModel();
}

int LeftoverListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_leftovers.size());
}

QString LeftoverListModel::titleAt(int row) const
{
    return m_leftovers.at(row).url.lastPathComponent();
}

ListRow LeftoverListModel::rowAt(int row) const
{
    const AppLeftover& leftover = m_leftovers.at(row);
    ListRow shown;
    shown.symbol = AppLeftover::icon(leftover.kind);
    shown.symbolColor = Role::orange;
    shown.title = titleAt(row);
    shown.detail =
        QCoreApplication::translate("AppLeftover", AppLeftover::rawValue(leftover.kind).toUtf8().constData());
    shown.value = leftover.formattedSize();
    shown.actions = {{.symbol = u"arrow.up.forward.square"_s, .name = tr("Reveal in Finder")}};
    return shown;
}

} // namespace keelbright
