#include "Keelbright/screens/apps/LeftoverListModel.h"

#include <QCoreApplication>

namespace keelbright {

using namespace Qt::StringLiterals;

QString LeftoverListModel::titleAt(int row) const
{
    return itemAt(row).url.lastPathComponent();
}

ListRow LeftoverListModel::rowAt(int row) const
{
    const AppLeftover& leftover = itemAt(row);
    ListRow shown;
    shown.symbol = AppLeftover::icon(leftover.kind);
    shown.symbolColor = Role::orange;
    shown.title = titleAt(row);
    shown.detail =
        QCoreApplication::translate("AppLeftover", AppLeftover::rawValue(leftover.kind).toUtf8().constData());
    shown.value = leftover.formattedSize();
    shown.actions = {
        {.id = RowActionId::reveal, .symbol = u"arrow.up.forward.square"_s, .name = tr("Reveal in Finder")}};
    return shown;
}

} // namespace keelbright
