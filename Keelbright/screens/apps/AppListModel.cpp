#include "Keelbright/screens/apps/AppListModel.h"

#include "Keelbright/screens/apps/AppIcons.h"
#include "Keelbright/screens/apps/UsageLook.h"

#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

AppListModel::AppListModel(AppIcons& icons, QObject* parent)
    : RowModel(parent)
    , m_icons(icons)
{
    connect(&m_icons, &AppIcons::loaded, this, &AppListModel::redrawRowOf);
}

QString AppListModel::revealActionName()
{
    return tr("Reveal in Finder");
}

QString AppListModel::removeActionName()
{
    return tr("Remove…");
}

void AppListModel::setApps(const QList<AppInfo>& apps)
{
    m_index = AppIndex(apps);
    applyFilter();
}

void AppListModel::setFilter(const AppFilter& filter)
{
    if (filter == m_filter)
        return;
    m_filter = filter;
    applyFilter();
}

void AppListModel::applyFilter()
{
    beginResetModel();
    m_filtered = m_index.filteredApps(m_filter);
    endResetModel();
}

int AppListModel::rowOf(const QUuid& id) const
{
    const auto found = std::ranges::find(m_filtered, id, &AppInfo::id);
    return found == m_filtered.end() ? -1 : static_cast<int>(found - m_filtered.begin());
}

int AppListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_filtered.size());
}

QString AppListModel::titleAt(int row) const
{
    return m_filtered.at(row).name;
}

ListRow AppListModel::rowAt(int row) const
{
    const AppInfo& app = m_filtered.at(row);
    const UsageLook look = lookOf(app.usageCategory);
    ListRow shown;
    shown.image = m_icons.icon(app.url, Metrics::tile);
    shown.picture = shown.image.isNull() ? ListRow::Picture::tile : ListRow::Picture::image;
    shown.symbol = u"app.fill"_s;
    shown.symbolColor = Role::secondaryText;
    shown.title = app.name;
    shown.tag = look.label;
    shown.tagColor = look.color;
    shown.detail = app.usageDescription;
    shown.menuActions = {{.symbol = u"folder"_s, .name = revealActionName()},
                         {.symbol = u"trash"_s, .name = removeActionName(), .isDelete = true}};
    return shown;
}

void AppListModel::redrawRowOf(const FileURL& bundle)
{
    const auto found = std::ranges::find(m_filtered, bundle, &AppInfo::url);
    if (found == m_filtered.end())
        return;
    const int row = static_cast<int>(found - m_filtered.begin());
    announceRows(row, row);
}

} // namespace keelbright
