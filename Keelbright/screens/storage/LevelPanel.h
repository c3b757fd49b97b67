#pragma once

#include "Keelbright/screens/storage/StorageBrowserModel.h"
#include "Keelbright/widgets/rows/ListRow.h"

#include <QWidget>

class QScrollArea;
class QStackedWidget;

namespace keelbright {

class BreadcrumbBar;
class BreakdownBar;
class LargestFilesPanel;
class RowListView;
class StorageNodeModel;
class TreemapView;

/// A level of the walk: the way to it, the kinds of its files, and its entries in the chosen view.
class LevelPanel : public QWidget
{
    Q_OBJECT

public:
    /// The model outlives the panel.
    explicit LevelPanel(StorageBrowserModel& model, QWidget* parent = nullptr);

    /// Shows the last level of the model, which must have one.
    void redraw();

    /// In a low window its parts stand closer, and the rows are lower.
    void setLow(bool isLow);

    /// To the level before, if there is one and none is being measured.
    void goBack();

    /// What takes the keyboard in the chosen view.
    [[nodiscard]] QWidget* focusTarget() const { return currentView().focusTarget; }

Q_SIGNALS:
    void actionPressed(const keelbright::FolderSizeNode& node, keelbright::RowActionId action);

private:
    /// How one of the view modes looks.
    struct View
    {
        QWidget* page;
        QWidget* focusTarget;
    };

    [[nodiscard]] View currentView() const;
    void connectParts();
    void redrawRows();
    void openRow(int row);

    StorageBrowserModel& m_model;
    BreadcrumbBar* m_breadcrumbs;
    BreakdownBar* m_breakdown;
    QStackedWidget* m_views;
    StorageNodeModel* m_rows;
    RowListView* m_list;
    QWidget* m_listPage;
    TreemapView* m_map;
    QScrollArea* m_mapPage;
    LargestFilesPanel* m_largest;

    std::optional<FileURL> m_shownURL;
    QList<FolderSizeNode> m_shownNodes;
    StorageBrowserModel::SortOrder m_shownOrder = StorageBrowserModel::SortOrder::size;
    std::optional<FileURL> m_leftLevel; ///< the level that the user has gone back from
};

} // namespace keelbright
