#include "Keelbright/screens/storage/LevelPanel.h"

#include "Keelbright/screens/shared/ListCard.h"
#include "Keelbright/screens/storage/BreadcrumbBar.h"
#include "Keelbright/screens/storage/BreakdownBar.h"
#include "Keelbright/screens/storage/LargestFilesPanel.h"
#include "Keelbright/screens/storage/StorageNodeRow.h"
#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace keelbright {

namespace {

constexpr int spacing = 12;
constexpr int lowSpacing = 6;
/// So that in the lowest window a single turn of the wheel, which is three steps, shows the rest of the map.
constexpr int mapStep = 40;

RowListView* makeList(StorageNodeModel* rows, QWidget* parent)
{
    auto* list = new RowListView(RowListView::Look::table, LevelPanel::tr("Entries"), parent);
    list->setRowModel(rows);
    return list;
}

/// In a low window the map, whose height is fixed, scrolls.
QScrollArea* makeMapPage(TreemapView* map, QWidget* parent)
{
    auto* page = new QScrollArea(parent);
    page->setFrameShape(QFrame::NoFrame);
    page->setWidgetResizable(true);
    page->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    page->setFocusPolicy(Qt::NoFocus);
    page->setAlignment(Qt::AlignTop);
    page->setWidget(map);
    page->verticalScrollBar()->setSingleStep(mapStep);
    return page;
}

} // namespace

LevelPanel::LevelPanel(StorageBrowserModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_breadcrumbs(new BreadcrumbBar(this))
    , m_breakdown(new BreakdownBar(this))
    , m_views(new QStackedWidget(this))
    , m_rows(new StorageNodeModel(this))
    , m_list(makeList(m_rows, m_views))
    , m_listPage(makeListCard(m_list, m_views))
    , m_map(new TreemapView)
    , m_mapPage(makeMapPage(m_map, m_views))
    , m_largest(new LargestFilesPanel(m_views))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    layout->addWidget(m_breadcrumbs);
    layout->addWidget(m_breakdown);
    layout->addWidget(m_views, 1);
    for (QWidget* page : {m_listPage, static_cast<QWidget*>(m_mapPage), static_cast<QWidget*>(m_largest)})
        m_views->addWidget(page);
    connectParts();
}

void LevelPanel::connectParts()
{
    connect(m_breadcrumbs, &BreadcrumbBar::backPressed, this, &LevelPanel::goBack);
    connect(m_breadcrumbs, &BreadcrumbBar::crumbPressed, this, [this](int index) {
        m_leftLevel = m_model.stack().at(index + 1).url;
        m_model.goTo(index);
    });
    connect(m_list, &RowListView::opened, this, &LevelPanel::openRow);
    connect(m_list, &RowListView::actionPressed, this,
            [this](int row, RowActionId action) { Q_EMIT actionPressed(m_rows->nodes().at(row), action); });
    connect(m_map, &TreemapView::drilledIn, &m_model, &StorageBrowserModel::drillIn);
    connect(m_map, &TreemapView::actionPressed, this, &LevelPanel::actionPressed);
    connect(m_map, &TreemapView::currentCellChanged, this, [this](const QRectF& cell) {
        const QPoint center = cell.center().toPoint();
        m_mapPage->ensureVisible(center.x(), center.y(), 0, static_cast<int>(cell.height() / 2) + 4);
    });
    connect(m_largest, &LargestFilesPanel::refreshPressed, &m_model, &StorageBrowserModel::loadLargestFiles);
    connect(m_largest, &LargestFilesPanel::actionPressed, this, &LevelPanel::actionPressed);
}

void LevelPanel::setLow(bool isLow)
{
    layout()->setSpacing(isLow ? lowSpacing : spacing);
    m_list->setDense(isLow);
    fitListCard(m_list);
}

LevelPanel::View LevelPanel::currentView() const
{
    using ViewMode = StorageBrowserModel::ViewMode;
    switch (m_model.viewMode()) {
    case ViewMode::list:
        return {m_listPage, m_list};
    case ViewMode::treemap:
        return {m_mapPage, m_map};
    case ViewMode::largest:
        return {m_largest, m_largest->list()};
    }
    Q_UNREACHABLE();
}

void LevelPanel::redraw()
{
    const StorageLevel& level = m_model.stack().last();
    QStringList crumbs;
    for (const StorageLevel& walked : m_model.stack())
        crumbs.append(walked.url.lastPathComponent());
    m_breadcrumbs->setCrumbs(crumbs);
    m_breakdown->setShares(level.breakdown, level.totalBytes);
    m_breakdown->setVisible(!level.breakdown.isEmpty());
    const bool isShown = level.nodes.isSharedWith(m_shownNodes) && m_shownURL == level.url;
    if (!isShown || m_shownOrder != m_model.sortOrder())
        redrawRows();
    if (!isShown) {
        m_map->setNodes(level.nodes, level.totalBytes);
        // A map without cells has nothing to scroll to.
        m_mapPage->setVerticalScrollBarPolicy(level.totalBytes > 0 ? Qt::ScrollBarAsNeeded
                                                                   : Qt::ScrollBarAlwaysOff);
    }
    m_shownURL = level.url;
    m_shownNodes = level.nodes;
    m_shownOrder = m_model.sortOrder();
    m_largest->redraw(m_model.largestFiles(), m_model.isLoadingLargest(), level.url.lastPathComponent());
    m_views->setCurrentWidget(currentView().page);
}

/// The current row stays at its entry, or at its place in the list where the entry has gone. After
/// going back it is the folder that the user was in.
void LevelPanel::redrawRows()
{
    int row = -1;
    std::optional<FileURL> current = std::exchange(m_leftLevel, std::nullopt);
    if (m_shownURL == m_model.currentURL() && m_list->currentRow() >= 0) {
        row = m_list->currentRow();
        current = m_rows->nodes().at(row).url;
    }
    m_rows->setNodes(m_model.sortedNodes(), m_model.currentBytes());
    fitListCard(m_list);
    if (!current)
        return;
    const auto found = std::ranges::find(m_rows->nodes(), *current, &FolderSizeNode::url);
    if (found != m_rows->nodes().end())
        row = static_cast<int>(found - m_rows->nodes().begin());
    m_list->setCurrentRow(std::min(row, m_rows->rowCount() - 1));
}

void LevelPanel::openRow(int row)
{
    // A copy: the model lets go of its nodes while it drills in.
    const FolderSizeNode node = m_rows->nodes().at(row);
    if (node.isDirectory)
        m_model.drillIn(node);
}

void LevelPanel::goBack()
{
    if (m_model.isScanning() || m_model.stack().size() < 2)
        return;
    m_leftLevel = m_model.currentURL();
    m_model.goBack();
}

} // namespace keelbright
