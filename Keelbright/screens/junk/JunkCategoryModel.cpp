#include "Keelbright/screens/junk/JunkCategoryModel.h"

#include "KeelbrightCore/platform/text/PluralNumber.h"

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
    const qsizetype count = category.items.size();
    ListRow row;
    row.symbol = category.icon;
    row.symbolColor = junkCategoryColor(category.id);
    row.title = category.title;
    row.detail = count == 1 ? tr("1 item") : tr("%n items", nullptr, pluralNumber(count));
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
