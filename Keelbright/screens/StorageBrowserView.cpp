#include "Keelbright/screens/StorageBrowserView.h"

#include "Keelbright/screens/shared/Announcement.h"
#include "Keelbright/screens/shared/FlowLayout.h"
#include "Keelbright/screens/shared/ListCard.h"
#include "Keelbright/screens/shared/RescanShortcuts.h"
#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/screens/storage/BreadcrumbBar.h"
#include "Keelbright/screens/storage/BreakdownBar.h"
#include "Keelbright/screens/storage/LargestFilesPanel.h"
#include "Keelbright/screens/storage/StorageHeader.h"
#include "Keelbright/screens/storage/StorageNodeRow.h"
#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/PanelNote.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/files/FileManager.h"

#include <QApplication>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using ViewMode = StorageBrowserModel::ViewMode;

} // namespace

StorageBrowserView::StorageBrowserView(const ScreenContext& context, QWidget* parent)
    : QWidget(parent)
    , m_alerts(context.alerts)
    , m_workspace(context.workspace)
    , m_model(context.state)
    , m_header(new StorageHeader(m_model, this))
    , m_shortcutBar(makeShortcuts())
    , m_pages(new QStackedWidget(this))
    , m_rows(new StorageNodeModel(this))
    , m_busy(new BusyState(tr("Calculating folder sizes…"), {}, 32, m_pages))
    , m_browse(makeBrowsePage())
    , m_prompt(makePrompt())
{
    for (QWidget* page : {m_busy, m_browse, m_prompt})
        m_pages->addWidget(page);
    auto* ground = new QHBoxLayout(this);
    ground->setContentsMargins(0, 0, 0, 0);
    auto* column = new QWidget(this);
    column->setMaximumWidth(Metrics::pageMaxWidth + 2 * Metrics::pageMarginX);
    ground->addStretch(1);
    ground->addWidget(column, 100000);
    ground->addStretch(1);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(Metrics::pageMarginX, Metrics::pageMarginY, Metrics::pageMarginX,
                               Metrics::pageMarginY - Metrics::cardShadow);
    layout->setSpacing(12);
    layout->addWidget(m_header);
    layout->addWidget(m_shortcutBar);
    layout->addWidget(m_pages, 1);
    addKeys();
    connect(&m_model, &StorageBrowserModel::changed, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &StorageBrowserView::redraw);
    redraw();
}

QWidget* StorageBrowserView::makeShortcuts()
{
    auto* bar = new QWidget(this);
    // Not fixed: that would be the height of one line.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    bar->setSizePolicy(policy);
    auto* row = new FlowLayout(8, 8, bar);
    const FileURL home = FileManager::defaultManager().homeDirectory();
    const auto add = [this, bar, row](const QString& label, const QString& icon, const FileURL& folder) {
        auto* button = new Button(Button::Kind::bordered, label, icon, bar);
        button->setHue(Role::accent);
        connect(button, &QPushButton::clicked, this, [this, folder] { m_model.navigate(folder); });
        row->addWidget(button);
        m_shortcuts.append({button, folder});
    };
    add(tr("Home"), u"house.fill"_s, home);
    add(tr("Documents"), u"doc.fill"_s, home.appending(u"Documents"_s));
    add(tr("Desktop"), u"menubar.rectangle"_s, home.appending(u"Desktop"_s));
    add(tr("Downloads"), u"arrow.down.circle.fill"_s, home.appending(u"Downloads"_s));
    add(tr("Pictures"), u"photo.fill"_s, home.appending(u"Pictures"_s));
    return bar;
}

QWidget* StorageBrowserView::makePrompt()
{
    auto* prompt = new EmptyStateView(
        tr("Choose a Folder to Explore"),
        tr("Use the shortcuts above or \"Choose Folder\" to browse any location on your Mac."),
        u"folder.badge.magnifyingglass"_s, m_pages);
    auto* choose = new Button(Button::Kind::primary, tr("Choose Folder"), u"folder.badge.plus"_s, prompt);
    connect(choose, &QPushButton::clicked, &m_model, &StorageBrowserModel::pickFolder);
    prompt->addAction(choose);
    return prompt;
}

QWidget* StorageBrowserView::makeBrowsePage()
{
    auto* page = new QWidget(m_pages);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    m_breadcrumbs = new BreadcrumbBar(page);
    m_breakdown = new BreakdownBar(page);
    m_content = new QStackedWidget(page);
    layout->addWidget(m_breadcrumbs);
    layout->addWidget(m_breakdown);
    layout->addWidget(m_content, 1);
    m_list = new RowListView(RowListView::Look::table, tr("Entries"), m_content);
    m_list->setRowModel(m_rows);
    m_largest = new LargestFilesPanel(m_content);
    // In the order of the modes.
    m_content->addWidget(makeListCard(m_list, m_content));
    m_content->addWidget(makeMap());
    m_content->addWidget(m_largest);
    connect(m_breadcrumbs, &BreadcrumbBar::backPressed, this, &StorageBrowserView::goBack);
    connect(m_breadcrumbs, &BreadcrumbBar::crumbPressed, this, [this](int index) {
        m_leftLevel = m_model.stack().at(index + 1).url;
        m_model.goTo(index);
    });
    connect(m_list, &RowListView::opened, this, &StorageBrowserView::openRow);
    connect(m_list, &RowListView::actionPressed, this,
            [this](int row, RowActionId action) { act(m_rows->nodes().at(row), action); });
    connect(m_largest, &LargestFilesPanel::refreshPressed, &m_model, &StorageBrowserModel::loadLargestFiles);
    connect(m_largest, &LargestFilesPanel::actionPressed, this, &StorageBrowserView::act);
    return page;
}

QWidget* StorageBrowserView::makeMap()
{
    m_mapArea = new QScrollArea(m_content);
    m_mapArea->setFrameShape(QFrame::NoFrame);
    m_mapArea->setWidgetResizable(true);
    m_mapArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_mapArea->setFocusPolicy(Qt::NoFocus);
    m_mapArea->setAlignment(Qt::AlignTop);
    m_map = new TreemapView;
    m_mapArea->setWidget(m_map);
    connect(m_map, &TreemapView::drilledIn, &m_model, &StorageBrowserModel::drillIn);
    connect(m_map, &TreemapView::actionPressed, this, &StorageBrowserView::act);
    connect(m_map, &TreemapView::currentCellChanged, this, [this](const QRectF& cell) {
        const QPoint center = cell.center().toPoint();
        m_mapArea->ensureVisible(center.x(), center.y(), 0, static_cast<int>(cell.height() / 2) + 4);
    });
    return m_mapArea;
}

void StorageBrowserView::addKeys()
{
    addRescanShortcuts(*this, [this] { refresh(); });
    connect(new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this), &QShortcut::activated, this,
            &StorageBrowserView::goBack);
    // In a list this key would ask for the Trash, and a slip must not.
    connect(new QShortcut(QKeySequence(Qt::Key_Backspace), this), &QShortcut::activated, this,
            &StorageBrowserView::goBack);
}

void StorageBrowserView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    redrawShortcuts();
}

void StorageBrowserView::redraw()
{
    m_header->redraw();
    redrawShortcuts();
    if (m_model.isScanning()) {
        showPage(m_busy);
        return;
    }
    if (m_model.stack().isEmpty()) {
        showPage(m_prompt);
        return;
    }
    redrawLevel();
    redrawContent();
    showPage(m_browse);
}

void StorageBrowserView::redrawShortcuts()
{
    for (const auto& [button, folder] : std::as_const(m_shortcuts))
        button->setEnabled(FileManager::defaultManager().fileExists(folder).exists);
}

void StorageBrowserView::redrawLevel()
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
    if (!isShown)
        m_map->setNodes(level.nodes, level.totalBytes);
    m_shownURL = level.url;
    m_shownNodes = level.nodes;
    m_shownOrder = m_model.sortOrder();
}

/// The row stays that the user was at, or the one that has come to its place; on the way back it is
/// the folder that he comes from.
void StorageBrowserView::redrawRows()
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

void StorageBrowserView::redrawContent()
{
    const std::optional<FileURL> folder = m_model.currentURL();
    m_largest->redraw(m_model.largestFiles(), m_model.isLoadingLargest(),
                      folder ? folder->lastPathComponent() : QString());
    m_content->setCurrentIndex(
        static_cast<int>(StorageBrowserModel::allViewModes().indexOf(m_model.viewMode())));
}

void StorageBrowserView::showPage(QWidget* page)
{
    if (page == m_pages->currentWidget() && page != m_browse)
        return;
    const QWidget* focused = QApplication::focusWidget();
    if (page == m_busy && focused != nullptr && m_browse->isAncestorOf(focused)) {
        m_returnsFocus = true;
        setFocus();
    }
    const bool isNew = page != m_pages->currentWidget();
    m_pages->setCurrentWidget(page);
    if (page != m_browse)
        return;
    // A crumb that was pressed is gone, and so is "Back" from the first level.
    const bool isLost = isVisible() && (QApplication::focusWidget() == nullptr || hasFocus());
    if ((m_returnsFocus && hasFocus()) || isLost)
        contentWithFocus()->setFocus(Qt::OtherFocusReason);
    m_returnsFocus = false;
    if (isNew && isVisible())
        announce(*m_browse, m_header->subtitle());
}

QWidget* StorageBrowserView::contentWithFocus() const
{
    switch (m_model.viewMode()) {
    case ViewMode::list:
        return m_list;
    case ViewMode::treemap:
        return m_map;
    case ViewMode::largest:
        return m_largest->list();
    }
    Q_UNREACHABLE();
}

void StorageBrowserView::openRow(int row)
{
    const FolderSizeNode node = m_rows->nodes().at(row);
    if (node.isDirectory)
        m_model.drillIn(node);
}

void StorageBrowserView::goBack()
{
    if (m_model.isScanning() || m_model.stack().size() < 2)
        return;
    m_leftLevel = m_model.currentURL();
    m_model.goBack();
}

void StorageBrowserView::refresh()
{
    if (m_model.viewMode() == ViewMode::largest)
        m_model.loadLargestFiles();
    else
        m_model.measureAgain();
}

void StorageBrowserView::act(const FolderSizeNode& node, RowActionId action)
{
    switch (action) {
    case RowActionId::addToBackup:
        m_model.addToBackup(node);
        break;
    case RowActionId::organise:
        m_model.organiseCurrentFolder(node.url);
        break;
    case RowActionId::reveal:
        m_workspace.reveal(node.url);
        break;
    case RowActionId::trash:
        askToTrash(node);
        break;
    default:
        break;
    }
}

void StorageBrowserView::askToTrash(const FolderSizeNode& node)
{
    m_model.setPendingDelete(node);
    const AlertRequest request{
        .title = tr("Move \"%1\" to Trash?").arg(displayText(node.name)),
        .message = tr("This cannot be undone from here. You can recover it from the Trash."),
        .action = tr("Move to Trash"),
        .cancel = tr("Cancel"),
        .isDestructive = true,
        .dismissed = [this] { m_model.setPendingDelete(std::nullopt); },
    };
    m_alerts.present(this, request, [this, node] { m_model.trash(node); });
}

} // namespace keelbright
