#pragma once

#include "Keelbright/state/AppFilter.h"
#include "Keelbright/widgets/rows/RowModel.h"

namespace keelbright {

class AppIcons;

/// The applications that a filter lets through, as rows.
class AppListModel : public RowModel
{
    Q_OBJECT

public:
    /// The icons outlive the model.
    explicit AppListModel(AppIcons& icons, QObject* parent = nullptr);

    /// What the context menu of a row offers.
    [[nodiscard]] static QString revealActionName();
    [[nodiscard]] static QString removeActionName();

    void setApps(const QList<AppInfo>& apps);
    void setFilter(const AppFilter& filter);

    [[nodiscard]] const AppFilter& filter() const { return m_filter; }

    [[nodiscard]] const QList<AppInfo>& filteredApps() const { return m_filtered; }

    /// -1 where the filter does not let it through.
    [[nodiscard]] int rowOf(const QUuid& id) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

private:
    void applyFilter();
    void redrawRowOf(const FileURL& bundle);

    AppIcons& m_icons;
    AppIndex m_index;
    AppFilter m_filter;
    QList<AppInfo> m_filtered;
};

} // namespace keelbright
