#include "Keelbright/screens/junk/JunkCategoryModel.h"

namespace keelbright {

Role junkCategoryColor(const QString& id)
{
    if (id == JunkCategoryID::userCaches)
        return Role::accent;
    if (id == JunkCategoryID::userLogs)
        return Role::mint;
    if (id == JunkCategoryID::xcode)
        return Role::azure;
    if (id == JunkCategoryID::iosBackups)
        return Role::purple;
    if (id == JunkCategoryID::browserCache)
        return Role::teal;
    if (id == JunkCategoryID::trash)
        return Role::orange;
    return Role::secondaryText;
}

JunkCategoryModel::JunkCategoryModel(const JunkCleanerVM& vm, QObject* parent)
    : GroupListModel(parent)
    , m_vm(vm)
{}

ListRow JunkCategoryModel::makeRow(const JunkCategory& category) const
{
    const QString count = QString::number(category.items.size());
    ListRow row;
    row.symbol = category.icon;
    row.symbolColor = junkCategoryColor(category.id);
    row.title = category.title;
    row.detail = category.items.size() == 1 ? tr("%1 item").arg(count) : tr("%1 items").arg(count);
    row.value = category.formattedSize();
    return row;
}

Qt::CheckState JunkCategoryModel::markOf(const JunkCategory& category) const
{
    switch (m_vm.selectionState(category)) {
    case SelectionState::none:
        return Qt::Unchecked;
    case SelectionState::partial:
        return Qt::PartiallyChecked;
    case SelectionState::all:
        return Qt::Checked;
    }
    Q_UNREACHABLE();
}

} // namespace keelbright
