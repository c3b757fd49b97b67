#include "Keelbright/screens/JunkCleanerView.h"

#include "Keelbright/screens/junk/JunkCategoryPanel.h"
#include "Keelbright/screens/junk/JunkItemPanel.h"
#include "Keelbright/screens/shared/RescanShortcuts.h"
#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/screens/shared/SelectionSummary.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/L10n.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/BottomBar.h"
#include "Keelbright/widgets/Button.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QHBoxLayout>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int categoryWidth = 280;

} // namespace

JunkCleanerView::JunkCleanerView(const ScreenContext& context, QWidget* parent)
    : QWidget(parent)
    , m_alerts(context.alerts)
    , m_vm(context.state.services().activityStore, context.state.services().clock, this)
    , m_categories(new JunkCategoryPanel(m_vm))
    , m_items(new JunkItemPanel(m_vm, context.workspace))
    , m_panels(makeSplit(m_categories, m_items, categoryWidth, this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_panels, 1);
    column->addWidget(makeBottomBar());
    addRescanShortcuts(*this, [this] { rescan(); });
    auto* clean = new QShortcut(Qt::Key_Delete, this);
    clean->setContext(Qt::WidgetWithChildrenShortcut);
    connect(clean, &QShortcut::activated, m_clean, &QPushButton::click);
    watchModel();
    followUndo(context.state.undo());
    redraw();
}

JunkCleanerView::~JunkCleanerView()
{
    // Their lists read the model, which is destroyed before the other children.
    delete m_panels;
}

BottomBar* JunkCleanerView::makeBottomBar()
{
    auto* bar = new BottomBar(this);
    m_selection = new SelectionSummary(bar);
    m_toggleAll = new Button(Button::Kind::bordered, tr("Select All"), {}, bar);
    m_rescan = new Button(Button::Kind::bordered, tr("Re-scan"), u"arrow.clockwise"_s, bar);
    m_clean = new Button(Button::Kind::primary, tr("Move to Trash"), u"trash"_s, bar);
    m_clean->setHue(Role::orange);
    bar->content()->addWidget(m_selection, 1);
    for (Button* button : {m_toggleAll, m_rescan, m_clean})
        bar->content()->addWidget(button);
    connect(m_toggleAll, &QPushButton::clicked, this, &JunkCleanerView::toggleEverything);
    connect(m_rescan, &QPushButton::clicked, this, &JunkCleanerView::rescan);
    connect(m_clean, &QPushButton::clicked, this, [this] { m_vm.setShowCleanConfirm(true); });
    return bar;
}

void JunkCleanerView::watchModel()
{
    connect(&m_vm, &JunkCleanerVM::changed, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &JunkCleanerView::redraw);
    connect(&m_vm, &JunkCleanerVM::showCleanConfirmChanged, this, [this] {
        if (m_vm.showCleanConfirm())
            ask();
    });
}

void JunkCleanerView::followUndo(UndoStore& undo)
{
    connect(&m_vm, &JunkCleanerVM::trashed, &undo, &UndoStore::remember);
    connect(&undo, &UndoStore::ended, this, [this](const UndoResult& result) {
        if (result.isFromTrash())
            rescan();
    });
}

void JunkCleanerView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // Not when the window comes back from the dock.
    if (event->spontaneous() || !m_vm.categories().isEmpty())
        return;
    rescan();
    // At once, or the first frame would say that all is clean.
    redraw();
}

void JunkCleanerView::rescan()
{
    if (!m_vm.isScanning())
        m_vm.scan();
}

void JunkCleanerView::redraw()
{
    m_focus.redraw(m_vm.isScanning(), [this] {
        m_categories->redraw();
        m_items->redraw();
        redrawBottomBar();
    });
}

void JunkCleanerView::redrawBottomBar()
{
    const qsizetype selected = m_vm.selectedItemIDs().size();
    if (selected == 0)
        m_selection->setSelection(tr("Nothing selected"), {});
    else
        m_selection->setSelection(selected == 1 ? tr("1 item selected")
                                                : tr("%n items selected", nullptr, pluralNumber(selected)),
                                  selectedSize());
    m_toggleAll->setCaption(selected == 0 ? tr("Select All") : tr("Deselect All"));
    // The items of the last scan are hidden, and the next result replaces them.
    m_toggleAll->setEnabled(!m_vm.isScanning());
    m_rescan->setEnabled(!m_vm.isScanning());
    m_clean->setEnabled(selected > 0);
}

void JunkCleanerView::toggleEverything()
{
    if (m_vm.selectedItemIDs().isEmpty())
        m_vm.selectAll();
    else
        m_vm.setSelectedItemIDs({});
}

QString JunkCleanerView::selectedSize() const
{
    return L10n::Formatters::bytes(m_vm.totalSelectedBytes());
}

void JunkCleanerView::ask()
{
    const qsizetype selected = m_vm.selectedItemIDs().size();
    const AlertRequest request{
        .title = selected == 1 ? tr("Move 1 item to Trash?")
                               : tr("Move %n items to Trash?", nullptr, pluralNumber(selected)),
        .message = tr("Selected junk (%1) will be moved to Trash. Nothing is permanently deleted — you can "
                      "restore from Trash if needed.")
                       .arg(selectedSize()),
        .action = tr("Move to Trash"),
        .cancel = tr("Cancel"),
        .isDestructive = true,
        .dismissed = [this] { m_vm.setShowCleanConfirm(false); },
    };
    m_alerts.present(this, request, [this] {
        m_vm.setShowCleanConfirm(false);
        clean();
    });
}

void JunkCleanerView::clean()
{
    const qsizetype selected = m_vm.selectedItemIDs().size();
    m_vm.clean();
    // What could not be moved stays selected.
    const qsizetype moved = selected - m_vm.selectedItemIDs().size();
    if (moved < selected)
        say(*this,
            tr("%1 of %n items moved to Trash", nullptr, pluralNumber(selected)).arg(QString::number(moved)));
    else
        say(*this, moved == 1 ? tr("1 item moved to Trash")
                              : tr("%n items moved to Trash", nullptr, pluralNumber(moved)));
}

} // namespace keelbright
