#include "Keelbright/screens/junk/JunkCategoryModel.h"

namespace keelbright {

namespace {

Qt::CheckState checkState(JunkCleanerVM::SelectionState state)
{
    switch (state) {
    case JunkCleanerVM::SelectionState::none:
        return Qt::Unchecked;
    case JunkCleanerVM::SelectionState::partial:
        return Qt::PartiallyChecked;
    case JunkCleanerVM::SelectionState::all:
        return Qt::Checked;
    }
    Q_UNREACHABLE();
}

} // namespace

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
    : RowModel(parent)
    , m_vm(vm)
{
    update();
}

int JunkCategoryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_categories.size());
}

ListRow JunkCategoryModel::rowAt(int row) const
{
    const JunkCategory& category = m_categories.at(row);
    const QString count = QString::number(category.items.size());
    ListRow shown;
    shown.mark = ListRow::Mark::circle;
    shown.markState = checkState(m_numbers.at(row).state);
    shown.symbol = category.icon;
    shown.symbolColor = junkCategoryColor(category.id);
    shown.title = category.title;
    shown.detail = category.items.size() == 1 ? tr("%1 item").arg(count) : tr("%1 items").arg(count);
    shown.value = m_numbers.at(row).size;
    return shown;
}

QString JunkCategoryModel::titleAt(int row) const
{
    return m_categories.at(row).title;
}

int JunkCategoryModel::rowOf(const std::optional<QString>& id) const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (m_categories.at(row).id == id)
            return row;
    }
    return -1;
}

void JunkCategoryModel::update()
{
    if (m_categories != m_vm.categories())
        updateCategories();
    updateSelection();
}

void JunkCategoryModel::updateCategories()
{
    beginResetModel();
    m_categories = m_vm.categories();
    m_numbers.clear();
    for (const JunkCategory& category : std::as_const(m_categories))
        m_numbers.append({category.formattedSize()});
    endResetModel();
}

void JunkCategoryModel::updateSelection()
{
    for (int row = 0; row < m_categories.size(); ++row) {
        const JunkCleanerVM::SelectionState state = m_vm.selectionState(m_categories.at(row));
        if (std::exchange(m_numbers[row].state, state) != state)
            announceRows(row, row);
    }
}

} // namespace keelbright
