#include "Keelbright/widgets/rows/RowListView.h"

#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/rows/AccessibleRows.h"
#include "Keelbright/widgets/rows/RowButtons.h"
#include "Keelbright/widgets/rows/RowDelegate.h"
#include "Keelbright/widgets/theme/ApplicationStyle.h"
#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

namespace keelbright {

/// What a point belongs to.
struct RowListView::Target
{
    int row = -1;
    bool isMark = false;
    qsizetype action = -1;

    bool operator==(const Target&) const = default;
};

RowListView::RowListView(Look look, const QString& name, QWidget* parent)
    : QListView(parent)
    , m_look(look)
    , m_padding(look == Look::table ? RowMetrics::tablePadding : RowMetrics::panelPadding)
    , m_delegate(new RowDelegate(this))
    , m_buttons(new RowButtons(this))
    , m_pressed(std::make_unique<Target>())
{
    useAccessibleRows(*this);
    setAccessibleName(name);
    setItemDelegate(m_delegate);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    ApplicationStyle::floatScrollBar(*this);
    verticalScrollBar()->setSingleStep(RowMetrics::tableRow / 2);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setResizeMode(Adjust);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    connect(&Theme::instance(), &Theme::changed, viewport(), qOverload<>(&QWidget::update));
    connect(m_buttons, &RowButtons::pressed, this, [this](RowActionId action) {
        if (currentRow() >= 0)
            Q_EMIT actionPressed(currentRow(), action);
    });
}

RowListView::~RowListView()
{
    delete m_buttons;
}

void RowListView::setRowModel(RowModel* model)
{
    m_model = model;
    setModel(model);
    const auto lookAtRows = [this] {
        // A list without rows has nothing that could show the focus.
        setFocusPolicy(m_model->rowCount() > 0 ? Qt::StrongFocus : Qt::NoFocus);
        // Rows of one height are laid out without asking for each.
        bool hasHeaders = false;
        for (int row = 0; !hasHeaders && row < m_model->rowCount(); ++row)
            hasHeaders = !m_model->headerAt(row).isEmpty();
        setUniformItemSizes(!hasHeaders);
    };
    lookAtRows();
    connect(model, &QAbstractItemModel::modelReset, this, lookAtRows);
    // The selection, not the current row: a screen reader selects a row without making it current.
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (m_isSelectingByCode)
            return;
        const QModelIndexList selected = selectionModel()->selectedIndexes();
        if (selected.isEmpty())
            Q_EMIT currentRowCleared();
        else
            Q_EMIT currentRowChanged(selected.first().row());
    });
    connect(model, &QAbstractItemModel::dataChanged, this, &RowListView::updateButtons);
    connect(model, &QAbstractItemModel::dataChanged, this, &RowListView::reportMark);
    updateButtons();
}

void RowListView::setDense(bool isDense)
{
    if (isDense == m_isDense)
        return;
    m_isDense = isDense;
    doItemsLayout();
}

void RowListView::setPadding(int padding)
{
    m_padding = padding;
    doItemsLayout();
}

int RowListView::rowHeight() const
{
    if (m_look == Look::panel)
        return RowMetrics::panelRow;
    return m_isDense ? RowMetrics::denseRow : RowMetrics::tableRow;
}

int RowListView::currentRow() const
{
    return currentIndex().isValid() ? currentIndex().row() : -1;
}

void RowListView::setCurrentRow(int row)
{
    if (m_model == nullptr)
        return;
    // Focus alone makes a row current without selecting it.
    const bool isSelected = !selectionModel()->selectedIndexes().isEmpty();
    if (row == currentRow() && isSelected == (row >= 0))
        return;
    m_isSelectingByCode = true;
    if (row < 0) {
        clearSelection();
        setCurrentIndex({});
    } else {
        setCurrentIndex(m_model->index(row));
    }
    m_isSelectingByCode = false;
}

QList<RowAction> RowListView::allActionsAt(int row) const
{
    const ListRow shown = m_model->rowAt(row);
    return shown.actions + shown.menuActions;
}

bool RowListView::showsFocusAt(const QModelIndex& index) const
{
    return index == currentIndex() && hasFocus() && m_focusRing.isVisible();
}

bool RowListView::hasButtonsAt(const QModelIndex& index) const
{
    return index == currentIndex() && m_buttons != nullptr && m_buttons->isVisible();
}

RowListView::Target RowListView::targetAt(const QPoint& position) const
{
    constexpr int reach = 8; ///< around a mark, which is small
    const QModelIndex index = indexAt(position);
    if (m_model == nullptr || !index.isValid() || !m_model->headerAt(index.row()).isEmpty())
        return {};
    const ListRow row = m_model->rowAt(index.row());
    const RowLayout layout = m_delegate->layoutOf(index, row);
    Target target{index.row()};
    target.isMark = row.mark != ListRow::Mark::none &&
                    layout.mark.adjusted(-reach, -reach, reach - 2, reach).contains(position);
    for (qsizetype i = 0; i < layout.actions.size(); ++i) {
        if (layout.actions.at(i).contains(position))
            target.action = i;
    }
    return target;
}

void RowListView::updateButtons()
{
    if (m_buttons == nullptr) // a sibling, which may be destroyed before the list
        return;
    const QModelIndex index = currentIndex();
    if (m_model == nullptr || !isVisible() || !index.isValid() || !m_model->headerAt(index.row()).isEmpty()) {
        m_buttons->show({}, {});
        return;
    }
    const ListRow row = m_model->rowAt(index.row());
    m_buttons->show(row.actions, m_delegate->layoutOf(index, row).actions);
}

void RowListView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    updateButtons();
    m_currentMark = current.data(Qt::CheckStateRole);
}

void RowListView::reportMark()
{
    const QVariant mark = currentIndex().data(Qt::CheckStateRole);
    if (mark == m_currentMark)
        return;
    m_currentMark = mark;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    event.setChild(currentRow());
    QAccessible::updateAccessibility(&event);
}

void RowListView::mousePressEvent(QMouseEvent* event)
{
    m_focusRing.focusOut();
    *m_pressed = event->button() == Qt::LeftButton ? targetAt(event->position().toPoint()) : Target{};
    // A press on a mark or a button does not select the row.
    if (m_pressed->isMark || m_pressed->action >= 0) {
        event->accept();
        return;
    }
    QListView::mousePressEvent(event);
}

void RowListView::mouseReleaseEvent(QMouseEvent* event)
{
    const Target pressed = std::exchange(*m_pressed, {});
    QListView::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || pressed.row < 0 ||
        pressed != targetAt(event->position().toPoint()))
        return;
    if (pressed.isMark)
        Q_EMIT markPressed(pressed.row);
    else if (pressed.action >= 0)
        Q_EMIT actionPressed(pressed.row, m_model->rowAt(pressed.row).actions.at(pressed.action).id);
    else
        Q_EMIT opened(pressed.row);
}

void RowListView::mouseMoveEvent(QMouseEvent* event)
{
    const Target target = targetAt(event->position().toPoint());
    m_delegate->setHoveredAction(target.row, target.action);
    if (!m_pressed->isMark && m_pressed->action < 0)
        QListView::mouseMoveEvent(event);
}

void RowListView::leaveEvent(QEvent* event)
{
    m_delegate->setHoveredAction(-1, -1);
    QListView::leaveEvent(event);
}

void RowListView::keyPressEvent(QKeyEvent* event)
{
    m_focusRing.keyPressed();
    viewport()->update();
    const int row = currentRow();
    if (m_model == nullptr || row < 0 || !m_model->headerAt(row).isEmpty()) {
        QListView::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Space:
        if (m_model->index(row).data(Qt::CheckStateRole).isValid()) {
            Q_EMIT markPressed(row);
            return;
        }
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
        Q_EMIT opened(row);
        Q_EMIT activated(currentIndex());
        return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        for (const RowAction& action : allActionsAt(row)) {
            if (action.isDelete) {
                Q_EMIT actionPressed(row, action.id);
                return;
            }
        }
        break;
    default:
        break;
    }
    QListView::keyPressEvent(event);
}

void RowListView::contextMenuEvent(QContextMenuEvent* event)
{
    QModelIndex index = indexAt(viewport()->mapFromGlobal(event->globalPos()));
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        index = currentIndex();
        place = viewport()->mapToGlobal(visualRect(index).center());
    }
    if (m_model != nullptr && index.isValid() && m_model->headerAt(index.row()).isEmpty())
        showMenu(index.row(), place);
}

void RowListView::showMenu(int row, const QPoint& globalPosition)
{
    const QList<RowAction> actions = allActionsAt(row);
    if (actions.isEmpty())
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QPersistentModelIndex index = m_model->index(row);
    for (const RowAction& action : actions) {
        // What takes something away stands apart, so that a slip does not reach it.
        if (action.isDelete && !menu->isEmpty())
            menu->addSeparator();
        const QIcon icon = action.symbol.isEmpty()
                               ? QIcon()
                               : Symbol::icon(action.symbol, Theme::instance().color(Role::mutedText));
        menu->addAction(icon, action.name, this, [this, index, id = action.id] {
            if (index.isValid())
                Q_EMIT actionPressed(index.row(), id);
        });
    }
    menu->popup(globalPosition);
}

void RowListView::focusInEvent(QFocusEvent* event)
{
    m_focusRing.focusIn(*event);
    QListView::focusInEvent(event);
    viewport()->update();
}

void RowListView::focusOutEvent(QFocusEvent* event)
{
    m_focusRing.focusOut();
    QListView::focusOutEvent(event);
    viewport()->update();
}

void RowListView::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    updateButtons();
}

void RowListView::updateGeometries()
{
    QListView::updateGeometries();
    updateButtons();
}

bool RowListView::event(QEvent* event)
{
    const bool isHandled = QListView::event(event);
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::ParentChange:
        updateButtons();
        break;
    default:
        break;
    }
    return isHandled;
}

void RowListView::paintEvent(QPaintEvent* event)
{
    const Role ground = m_look == Look::table ? Role::card : Role::window;
    QPainter(viewport()).fillRect(event->rect(), Theme::instance().color(ground));
    QListView::paintEvent(event);
}

bool RowListView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), toolTipAt(help->pos()), viewport());
        return true;
    }
    return QListView::viewportEvent(event);
}

QString RowListView::toolTipAt(const QPoint& position) const
{
    const Target target = targetAt(position);
    if (target.row < 0)
        return {};
    const ListRow row = m_model->rowAt(target.row);
    if (target.action >= 0)
        return row.actions.at(target.action).name;
    QStringList whole = m_delegate->cutTexts(m_model->index(target.row), row);
    if (!row.toolTip.isEmpty())
        whole.prepend(displayText(row.toolTip));
    return toolTipText(whole.join(u' '));
}

} // namespace keelbright
