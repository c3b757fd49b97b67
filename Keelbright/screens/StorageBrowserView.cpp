#include "Keelbright/screens/StorageBrowserView.h"

#include "Keelbright/screens/shared/FolderDrop.h"
#include "Keelbright/screens/shared/RescanShortcuts.h"
#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/screens/storage/LevelPanel.h"
#include "Keelbright/screens/storage/ShortcutBar.h"
#include "Keelbright/screens/storage/StorageHeader.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/PanelNote.h"

#include <QApplication>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr int lowHeight = 640;

QWidget* makePrompt(StorageBrowserModel& model, QWidget* parent)
{
    auto* prompt = new EmptyStateView(
        StorageBrowserView::tr("Choose a Folder to Explore"),
        StorageBrowserView::tr(
            "Use the shortcuts above or \"Choose Folder\" to browse any location on your Mac."),
        u"folder.badge.magnifyingglass"_s, parent);
    auto* choose = new Button(Button::Kind::primary, StorageBrowserView::tr("Choose Folder"),
                              u"folder.badge.plus"_s, prompt);
    QObject::connect(choose, &QPushButton::clicked, &model, &StorageBrowserModel::pickFolder);
    prompt->addAction(choose);
    return prompt;
}

} // namespace

StorageBrowserView::StorageBrowserView(const ScreenContext& context, QWidget* parent)
    : QWidget(parent)
    , m_alerts(context.alerts)
    , m_workspace(context.workspace)
    , m_model(context.state)
    , m_header(new StorageHeader(m_model, this))
    , m_shortcuts(new ShortcutBar(m_model, this))
    , m_pages(new QStackedWidget(this))
    , m_busy(new BusyState(tr("Calculating folder sizes…"), {}, 32, m_pages))
    , m_level(new LevelPanel(m_model, m_pages))
    , m_prompt(makePrompt(m_model, m_pages))
{
    for (QWidget* page : {m_busy, static_cast<QWidget*>(m_level), m_prompt})
        m_pages->addWidget(page);
    layOut();
    addKeys();
    acceptFolders(*this, [this](const QList<FileURL>& folders) { m_model.navigate(folders.first()); });
    connect(m_level, &LevelPanel::actionPressed, this, &StorageBrowserView::perform);
    connect(&context.state.undo(), &UndoStore::ended, this, &StorageBrowserView::refresh);
    connect(&m_model, &StorageBrowserModel::changed, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &StorageBrowserView::redraw);
    redraw();
}

void StorageBrowserView::layOut()
{
    // As wide as the window: a picture of space takes all that there is.
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_header);
    layout->addWidget(m_shortcuts);
    layout->addWidget(m_pages, 1);
    fitHeight();
}

void StorageBrowserView::fitHeight()
{
    // In a low window the entries get the room that is left around the head.
    const bool isLow = height() < lowHeight;
    const int margin = isLow ? 8 : Metrics::pageMarginY;
    layout()->setContentsMargins(Metrics::pageMarginX, margin, Metrics::pageMarginX,
                                 margin - Metrics::cardShadow);
    layout()->setSpacing(isLow ? 6 : 12);
    m_header->setLow(isLow);
    m_level->setLow(isLow);
}

void StorageBrowserView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitHeight();
}

void StorageBrowserView::addKeys()
{
    addRescanShortcuts(*this, [this] { refresh(); });
    connect(new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this), &QShortcut::activated, m_level,
            &LevelPanel::goBack);
    // In a list this key would ask for the Trash, and a slip must not.
    connect(new QShortcut(QKeySequence(Qt::Key_Backspace), this), &QShortcut::activated, m_level,
            &LevelPanel::goBack);
}

void StorageBrowserView::redraw()
{
    m_header->redraw();
    if (m_model.isScanning()) {
        showPage(m_busy);
        return;
    }
    if (m_model.stack().isEmpty()) {
        showPage(m_prompt);
        return;
    }
    m_level->redraw();
    showPage(m_level);
}

void StorageBrowserView::showPage(QWidget* page)
{
    if (page == m_pages->currentWidget() && page != m_level)
        return;
    const QWidget* focused = QApplication::focusWidget();
    if (page == m_busy && focused != nullptr && m_level->isAncestorOf(focused)) {
        m_returnsFocus = true;
        setFocus();
    }
    const bool isNew = page != m_pages->currentWidget();
    m_pages->setCurrentWidget(page);
    if (page != m_level)
        return;
    // A crumb that was pressed is gone, and so is "Back" from the first level.
    const bool isLost = isVisible() && (QApplication::focusWidget() == nullptr || hasFocus());
    if ((m_returnsFocus && hasFocus()) || isLost)
        m_level->focusTarget()->setFocus(Qt::OtherFocusReason);
    m_returnsFocus = false;
    if (isNew && isVisible())
        announce(*m_level, m_header->subtitle());
}

void StorageBrowserView::refresh()
{
    m_model.shortcuts().lookUp();
    if (m_model.viewMode() == StorageBrowserModel::ViewMode::largest)
        m_model.loadLargestFiles();
    else
        m_model.measureAgain();
}

void StorageBrowserView::perform(const FolderSizeNode& node, RowActionId action)
{
    switch (action) {
    case RowActionId::addToBackup:
        addToBackup(node);
        break;
    case RowActionId::organise:
        m_model.organiseCurrentFolder(node.url);
        break;
    case RowActionId::open:
        m_workspace.open(node.url);
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

void StorageBrowserView::addToBackup(const FolderSizeNode& node)
{
    // The screen itself looks the same afterwards.
    const QString said = m_model.addToBackup(node) ? tr("%1 was added to the backup sources")
                                                   : tr("%1 is among the backup sources already");
    say(*this, said.arg(displayText(node.name)));
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
