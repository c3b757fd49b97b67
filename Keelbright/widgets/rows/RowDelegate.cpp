#include "Keelbright/widgets/rows/RowDelegate.h"

#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/FocusRing.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "Keelbright/widgets/rows/RowPainting.h"
#include "Keelbright/widgets/theme/PixelGrid.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QPainter>

namespace keelbright {

namespace {

/// Fainter than that of a button, as it covers a whole row.
QColor hoverColor()
{
    QColor color = Theme::instance().color(Role::secondaryText);
    color.setAlphaF(0.05F);
    return color;
}

} // namespace

RowDelegate::RowDelegate(RowListView* view)
    : QStyledItemDelegate(view)
    , m_view(view)
{}

RowLayout RowDelegate::layoutIn(const QRect& rect, const ListRow& row) const
{
    if (m_view->look() == RowListView::Look::table)
        return layOutRow(row, rect.adjusted(0, 0, 0, -1), m_view->padding());
    const QRect field = rect.adjusted(RowMetrics::panelInset, 1, -RowMetrics::panelInset, -1);
    return layOutRow(row, field, m_view->padding());
}

RowLayout RowDelegate::layoutOf(const QModelIndex& index, const ListRow& row) const
{
    return layoutIn(m_view->visualRect(index), row);
}

QStringList RowDelegate::cutTexts(const QModelIndex& index, const ListRow& row) const
{
    const RowLayout layout = layoutOf(index, row);
    const auto isCut = [](const QRect& rect, FontRole font, const QString& text) {
        return QFontMetrics(Theme::instance().font(font)).horizontalAdvance(text) > rect.width();
    };
    QStringList texts;
    if (const QString title = keelbright::displayText(row.title);
        isCut(layout.title, FontRole::bodyStrong, title))
        texts.append(title);
    if (const QString detail = keelbright::displayText(row.detail);
        isCut(layout.detail, FontRole::secondary, detail))
        texts.append(detail);
    return texts;
}

void RowDelegate::setHoveredAction(int row, qsizetype action)
{
    if (row == m_hoveredRow && action == m_hoveredAction)
        return;
    m_hoveredRow = row;
    m_hoveredAction = action;
    m_view->viewport()->update();
}

QSize RowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const RowModel* model = m_view->rowModel();
    if (model != nullptr && !model->headerAt(index.row()).isEmpty())
        return {1, RowMetrics::header};
    return {1, m_view->rowHeight()};
}

void RowDelegate::paintHeader(QPainter& painter, const QRect& rect, const QString& title) const
{
    const Theme& theme = Theme::instance();
    painter.setFont(theme.font(FontRole::groupTitle));
    painter.setPen(theme.color(Role::secondaryText));
    // Nearer to the rows below than to those above.
    const QRect textRect = rect.adjusted(m_view->padding(), 9, -m_view->padding(), 0);
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(title, Qt::ElideRight, textRect.width()));
    painter.fillRect(lineAtBottom(painter, rect), theme.color(Role::line));
}

void RowDelegate::paintGround(QPainter& painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const Theme& theme = Theme::instance();
    const bool isPanel = m_view->look() == RowListView::Look::panel;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
    const QRectF field = wholePixels(
        painter,
        isPanel ? option.rect.adjusted(RowMetrics::panelInset, 1, -RowMetrics::panelInset, -1) : option.rect);
    const double radius = isPanel ? RowMetrics::panelRadius : 0;
    painter.setPen(Qt::NoPen);
    if (isSelected || isHovered) {
        painter.setBrush(isSelected ? theme.color(Role::selection) : hoverColor());
        painter.drawRoundedRect(field, radius, radius);
    }
    if (!isPanel && index.row() + 1 < index.model()->rowCount())
        painter.fillRect(lineAtBottom(painter, option.rect), theme.color(Role::line));
    if (m_view->showsFocusAt(index))
        FocusRing::paint(painter, isPanel ? field : field.adjusted(1, 1, -1, -2), std::max(radius, 5.0));
}

void RowDelegate::paintActions(QPainter& painter, const ListRow& row, const RowLayout& layout,
                               int index) const
{
    const double restingOpacity = Theme::instance().isContrastHigh() ? 1 : 0.45;
    for (qsizetype i = 0; i < layout.actions.size(); ++i) {
        const bool isHovered = index == m_hoveredRow && i == m_hoveredAction;
        // Symbols step back in all rows but the one under the pointer; the current row has real buttons.
        const bool isResting = index != m_hoveredRow && !row.actions.at(i).symbol.isEmpty();
        painter.setOpacity(isResting ? restingOpacity : 1);
        RowPainting::paintAction(painter, row.actions.at(i), layout.actions.at(i), isHovered);
    }
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const RowModel* model = m_view->rowModel();
    if (model == nullptr)
        return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (const QString header = model->headerAt(index.row()); !header.isEmpty()) {
        paintHeader(*painter, option.rect, header);
    } else {
        const ListRow row = model->rowAt(index.row());
        const RowLayout layout = layoutIn(option.rect, row);
        paintGround(*painter, option, index);
        const Role base = m_view->look() == RowListView::Look::table ? Role::card : Role::window;
        RowPainting::paintRow(*painter, row, layout, {base, option.state.testFlag(QStyle::State_Selected)});
        if (!m_view->hasButtonsAt(index))
            paintActions(*painter, row, layout, index.row());
    }
    painter->restore();
}

} // namespace keelbright
