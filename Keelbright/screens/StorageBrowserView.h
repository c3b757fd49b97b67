#pragma once

#include "Keelbright/screens/storage/StorageBrowserModel.h"
#include "Keelbright/widgets/FrameThrottle.h"
#include "Keelbright/widgets/rows/ListRow.h"

#include <QWidget>

class QScrollArea;
class QStackedWidget;

namespace keelbright {

class AlertPresenter;
class BreadcrumbBar;
class BreakdownBar;
class Button;
class LargestFilesPanel;
class RowListView;
class StorageHeader;
class StorageNodeModel;
class TreemapView;
class Workspace;
struct ScreenContext;

/// What takes the space in a folder, level by level: as a list, as a map, or its largest files.
class StorageBrowserView : public QWidget
{
    Q_OBJECT

public:
    explicit StorageBrowserView(const ScreenContext& context, QWidget* parent = nullptr);

    [[nodiscard]] StorageBrowserModel& model() { return m_model; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeShortcuts();
    QWidget* makePrompt();
    QWidget* makeBrowsePage();
    QWidget* makeMap();
    void addKeys();
    void redraw();
    void redrawShortcuts();
    void redrawLevel();
    void redrawRows();
    void redrawContent();
    void showPage(QWidget* page);
    void openRow(int row);
    void goBack();
    void refresh();
    void act(const FolderSizeNode& node, RowActionId action);
    void askToTrash(const FolderSizeNode& node);
    [[nodiscard]] QWidget* contentWithFocus() const;

    AlertPresenter& m_alerts;
    Workspace& m_workspace;
    StorageBrowserModel m_model;
    FrameThrottle m_frames;
    StorageHeader* m_header;
    QList<std::pair<Button*, FileURL>> m_shortcuts;
    QWidget* m_shortcutBar; ///< before the pages, as Tab goes
    QStackedWidget* m_pages;
    BreadcrumbBar* m_breadcrumbs = nullptr;
    BreakdownBar* m_breakdown = nullptr;
    QStackedWidget* m_content = nullptr;
    StorageNodeModel* m_rows;
    RowListView* m_list = nullptr;
    QScrollArea* m_mapArea = nullptr;
    TreemapView* m_map = nullptr;
    LargestFilesPanel* m_largest = nullptr;
    QWidget* m_busy;
    QWidget* m_browse;
    QWidget* m_prompt;

    std::optional<FileURL> m_shownURL; ///< of the level on display
    QList<FolderSizeNode> m_shownNodes;
    StorageBrowserModel::SortOrder m_shownOrder = StorageBrowserModel::SortOrder::size;
    std::optional<FileURL> m_leftLevel; ///< where the user comes back from
    bool m_returnsFocus = false;        ///< the content had it before it went for the spinner
};

} // namespace keelbright
