#include "Keelbright/screens/storage/treemap/TreemapView.h"

#include "Keelbright/screens/storage/StorageNodeRow.h"
#include "Keelbright/screens/storage/treemap/AccessibleTreemap.h"
#include "Keelbright/screens/storage/treemap/TreemapPicture.h"
#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <optional>

namespace keelbright {

namespace {

std::optional<TreemapDirection> directionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return TreemapDirection::left;
    case Qt::Key_Right:
        return TreemapDirection::right;
    case Qt::Key_Up:
        return TreemapDirection::up;
    case Qt::Key_Down:
        return TreemapDirection::down;
    default:
        return std::nullopt;
    }
}

} // namespace

TreemapView::TreemapView(QWidget* parent)
    : QWidget(parent)
{
    installAccessibleTreemap();
    setAccessibleName(tr("Treemap"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(mapHeight);
    connect(&Theme::instance(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

void TreemapView::setNodes(const QList<FolderSizeNode>& nodes, qint64 totalBytes)
{
    m_nodes = nodes;
    m_totalBytes = totalBytes;
    m_current = 0;
    m_pressed = -1;
    forgetCells();
    m_anchor = {};
    // An empty map has nothing to focus.
    const bool hasCells = std::ranges::any_of(m_nodes, [](const auto& node) { return node.totalBytes > 0; });
    setFocusPolicy(hasCells ? Qt::StrongFocus : Qt::NoFocus);
    setAccessibleDescription(summary());
}

QString TreemapView::summary() const
{
    constexpr qsizetype named = 3;
    // They come largest first.
    QStringList largest;
    for (const FolderSizeNode& node : m_nodes.first(std::min(named, m_nodes.size()))) {
        if (node.totalBytes > 0)
            largest.append(tr("%1, %2").arg(displayText(node.name), node.formattedSize()));
    }
    return largest.isEmpty() ? tr("Nothing here takes up space.")
                             : tr("The largest: %1.").arg(largest.join(QStringLiteral("; ")));
}

void TreemapView::forgetCells()
{
    m_areCellsLaid = false;
    m_picture = {};
    m_hovered = -1;
    ++m_generation;
    update();
}

const QList<TreemapCell>& TreemapView::cells()
{
    if (!m_areCellsLaid) {
        m_cells = TreemapLayout{m_nodes, m_totalBytes, QSizeF(size())}.layout();
        m_areCellsLaid = true;
    }
    return m_cells;
}

int TreemapView::cellAt(const QPointF& position)
{
    const auto found =
        std::ranges::find_if(cells(), [&](const TreemapCell& cell) { return cell.rect.contains(position); });
    return found == m_cells.cend() ? -1 : static_cast<int>(found - m_cells.cbegin());
}

QString TreemapView::textOf(int cell)
{
    const FolderSizeNode& node = cells().at(cell).node;
    return tr("%1, %2").arg(displayText(node.name), node.formattedSize());
}

int TreemapView::currentCell()
{
    return std::min(m_current, static_cast<int>(cells().size()) - 1);
}

void TreemapView::setCurrentCell(int cell)
{
    if (cell < 0 || cell >= cells().size())
        return;
    m_anchor = m_cells.at(cell).rect.center();
    if (cell == m_current)
        return;
    updateCell(m_current);
    m_current = cell;
    updateCell(m_current);
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(cell);
    QAccessible::updateAccessibility(&event);
}

void TreemapView::press(int cell)
{
    // A copy: whoever receives the signal may replace the nodes.
    const FolderSizeNode node = cells().at(cell).node;
    if (node.isDirectory)
        Q_EMIT drilledIn(node);
}

void TreemapView::setHovered(int cell)
{
    if (cell == m_hovered)
        return;
    updateCell(m_hovered);
    m_hovered = cell;
    updateCell(m_hovered);
    const bool isFolder = cell >= 0 && cells().at(cell).node.isDirectory;
    setCursor(isFolder ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void TreemapView::updateCell(int cell)
{
    constexpr int ringRoom = 6;
    if (cell >= 0 && cell < cells().size())
        update(m_cells.at(cell).rect.toAlignedRect().marginsAdded(QMargins() + ringRoom));
}

void TreemapView::drawIfChanged()
{
    const ColorScheme scheme = Theme::instance().scheme();
    const qreal ratio = devicePixelRatioF();
    if (!m_picture.isNull() && m_pictureScheme == scheme &&
        qFuzzyCompare(m_picture.devicePixelRatio(), ratio))
        return;
    m_picture = drawTreemap(cells(), size(), ratio);
    m_pictureScheme = scheme;
    ++m_drawingCount;
}

void TreemapView::paintEvent(QPaintEvent*)
{
    drawIfChanged();
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    if (m_hovered >= 0 && m_hovered < m_cells.size())
        paintMark(painter, m_hovered);
    if (hasFocus() && m_focusRing.isVisible() && currentCell() >= 0)
        paintRing(painter, currentCell());
}

void TreemapView::paintMark(QPainter& painter, int cell)
{
    const QRectF rect = onDevicePixels(m_cells.at(cell).rect, devicePixelRatioF());
    const QColor light = Theme::instance().color(Role::onFill);
    QColor veil = light;
    veil.setAlphaF(0.14F);
    painter.fillRect(rect, veil);
    QColor edge = light;
    edge.setAlphaF(0.75F);
    painter.setPen(QPen(edge, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
}

/// White on black, which can be seen on every colour. Around a cell that is too small for it inside.
void TreemapView::paintRing(QPainter& painter, int cell)
{
    constexpr double minimumSide = 10;
    QRectF ring = m_cells.at(cell).rect;
    const double widening = std::max(0.0, (minimumSide - std::min(ring.width(), ring.height())) / 2);
    ring = ring.adjusted(-widening, -widening, widening, widening).intersected(QRectF(rect()));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 150), 4));
    painter.drawRoundedRect(ring.adjusted(2, 2, -2, -2), 3, 3);
    painter.setPen(QPen(Theme::instance().color(Role::onFill), 2));
    painter.drawRoundedRect(ring.adjusted(2, 2, -2, -2), 3, 3);
}

void TreemapView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    forgetCells();
}

void TreemapView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::FontChange)
        m_picture = {};
}

bool TreemapView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int cell = cellAt(help->pos());
    if (cell < 0) {
        QToolTip::hideText();
        event->ignore();
        return true;
    }
    const FolderSizeNode& node = m_cells.at(cell).node;
    const QString text = toolTipText(tr("%1 — %2").arg(node.name, node.formattedSize()));
    QToolTip::showText(help->globalPos(), text, this, m_cells.at(cell).rect.toAlignedRect());
    return true;
}

void TreemapView::mousePressEvent(QMouseEvent* event)
{
    m_focusRing.focusOut();
    updateCell(currentCell());
    m_pressed = event->button() == Qt::LeftButton ? cellAt(event->position()) : -1;
    setCurrentCell(cellAt(event->position()));
}

void TreemapView::mouseReleaseEvent(QMouseEvent* event)
{
    const int pressed = std::exchange(m_pressed, -1);
    if (event->button() == Qt::LeftButton && pressed >= 0 && pressed == cellAt(event->position()))
        press(pressed);
}

void TreemapView::mouseMoveEvent(QMouseEvent* event)
{
    setHovered(cellAt(event->position()));
}

void TreemapView::leaveEvent(QEvent* event)
{
    setHovered(-1);
    QWidget::leaveEvent(event);
}

void TreemapView::move(TreemapDirection direction)
{
    if (m_anchor.isNull())
        m_anchor = m_cells.at(currentCell()).rect.center();
    const QPointF anchor = m_anchor;
    const int next = treemapNeighbour(m_cells, currentCell(), direction, anchor);
    if (next < 0)
        return;
    setCurrentCell(next);
    const bool isSideways = direction == TreemapDirection::left || direction == TreemapDirection::right;
    if (isSideways)
        m_anchor.setY(anchor.y());
    else
        m_anchor.setX(anchor.x());
    Q_EMIT currentCellChanged(m_cells.at(next).rect);
}

void TreemapView::keyPressEvent(QKeyEvent* event)
{
    const int current = currentCell();
    if (current < 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    m_focusRing.keyPressed();
    updateCell(current);
    if (const auto direction = directionOf(event->key())) {
        move(*direction);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Home:
        setCurrentCell(0);
        break;
    case Qt::Key_End:
        setCurrentCell(static_cast<int>(m_cells.size()) - 1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            press(current);
        break;
    case Qt::Key_Delete:
        pressDelete();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void TreemapView::pressDelete()
{
    const FolderSizeNode node = cells().at(currentCell()).node;
    for (const RowAction& action : storageNodeActions(node)) {
        if (action.isDelete)
            Q_EMIT actionPressed(node, action.id);
    }
}

void TreemapView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const int cell = isByKey ? currentCell() : cellAt(event->pos());
    if (cell < 0)
        return;
    setCurrentCell(cell);
    showMenu(cell, isByKey ? mapToGlobal(m_cells.at(cell).rect.center().toPoint()) : event->globalPos());
}

void TreemapView::showMenu(int cell, const QPoint& globalPosition)
{
    const FolderSizeNode node = cells().at(cell).node;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const RowAction& action : storageNodeActions(node)) {
        if (action.isDelete && !menu->isEmpty())
            menu->addSeparator();
        const QColor color = Theme::instance().color(action.hue);
        QAction* entry = menu->addAction(Symbol::icon(action.symbol, color), action.name);
        connect(entry, &QAction::triggered, this,
                [this, node, id = action.id] { Q_EMIT actionPressed(node, id); });
    }
    menu->popup(globalPosition);
}

void TreemapView::focusInEvent(QFocusEvent* event)
{
    m_focusRing.focusIn(*event);
    updateCell(currentCell());
    QWidget::focusInEvent(event);
    if (currentCell() < 0)
        return;
    QAccessibleEvent focus(this, QAccessible::Focus);
    focus.setChild(currentCell());
    QAccessible::updateAccessibility(&focus);
}

void TreemapView::focusOutEvent(QFocusEvent* event)
{
    m_focusRing.focusOut();
    updateCell(currentCell());
    QWidget::focusOutEvent(event);
}

} // namespace keelbright
