#include "Keelbright/screens/apps/AppListModel.h"

#include "Keelbright/screens/apps/AppIcons.h"
#include "Keelbright/screens/apps/UsageLook.h"

namespace keelbright {

using namespace Qt::StringLiterals;

AppListModel::AppListModel(AppIcons& icons, QObject* parent)
    : ItemRowModel(parent)
    , m_icons(icons)
{
    connect(&m_icons, &AppIcons::loaded, this, &AppListModel::redrawRowsOf);
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
    setItems(m_index.filteredApps(m_filter));
}

QString AppListModel::titleAt(int row) const
{
    return itemAt(row).name;
}

ListRow AppListModel::rowAt(int row) const
{
    const AppInfo& app = itemAt(row);
    const UsageLook look = lookOf(app.usageCategory);
    ListRow shown;
    shown.image = m_icons.icon(AppIcons::sourceOf(app), Metrics::tile, app.themeIcon);
    shown.picture = shown.image.isNull() ? ListRow::Picture::tile : ListRow::Picture::image;
    shown.symbol = u"app.fill"_s;
    shown.symbolColor = Role::secondaryText;
    shown.title = app.name;
    shown.tag = look.label;
    shown.tagColor = look.color;
    shown.detail = app.usageDescription;
    shown.menuActions = {
        {.id = RowActionId::reveal, .symbol = u"folder"_s, .name = revealActionName()},
        {.id = RowActionId::remove, .symbol = u"trash"_s, .name = removeActionName(), .isDelete = true}};
    return shown;
}

void AppListModel::redrawRowsOf(const FileURL& source)
{
    for (int row = 0; row < items().size(); ++row) {
        if (AppIcons::sourceOf(itemAt(row)) == source)
            announceRows(row, row);
    }
}

} // namespace keelbright
