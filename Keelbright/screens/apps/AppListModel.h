#pragma once

#include "Keelbright/state/AppFilter.h"
#include "Keelbright/widgets/rows/ItemRowModel.h"

namespace keelbright {

class AppIcons;

/// The applications that match a filter, as rows.
class AppListModel : public ItemRowModel<AppInfo>
{
    Q_OBJECT

public:
    /// The icons outlive the model.
    explicit AppListModel(AppIcons& icons, QObject* parent = nullptr);

    /// The names of the actions in the context menu of a row.
    [[nodiscard]] static QString revealActionName();
    [[nodiscard]] static QString removeActionName();

    void setApps(const QList<AppInfo>& apps);
    void setFilter(const AppFilter& filter);

    [[nodiscard]] const AppFilter& filter() const { return m_filter; }

    [[nodiscard]] const QList<AppInfo>& filteredApps() const { return items(); }

    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

private:
    void applyFilter();
    void redrawRowsOf(const FileURL& source);

    AppIcons& m_icons;
    AppIndex m_index;
    AppFilter m_filter;
};

} // namespace keelbright
