#include "Keelbright/screens/shell/SidebarDelegate.h"

#include "Keelbright/screens/shell/SidebarModel.h"
#include "Keelbright/widgets/FocusRing.h"
#include "Keelbright/widgets/theme/PixelGrid.h"
#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QPainter>

namespace keelbright {

namespace {

constexpr int headerHeight = 33;
constexpr int inset = 10;
constexpr int headerLeft = 20;
constexpr int symbolLeft = 21;
constexpr int symbolSize = 17;
constexpr int textLeft = 47;
constexpr int rowRadius = 6;

void paintHeader(QPainter& painter, const QRect& rect, const QString& title)
{
    const Theme& theme = Theme::instance();
    painter.setFont(theme.font(FontRole::groupTitle));
    painter.setPen(theme.color(Role::mutedText));
    // Closer to the rows below, whose header this is, than to the rows above.
    painter.drawText(rect.adjusted(headerLeft, 9, -inset, 0), Qt::AlignLeft | Qt::AlignVCenter, title);
}

} // namespace

void SidebarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    const Theme& theme = Theme::instance();
    const QString symbol = index.data(SidebarModel::symbolRole).toString();
    const QString title = index.data().toString();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (symbol.isEmpty()) {
        paintHeader(*painter, option.rect, title);
        painter->restore();
        return;
    }
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QRectF row = wholePixels(*painter, option.rect.adjusted(inset, 0, -inset, 0));
    painter->setPen(Qt::NoPen);
    if (isSelected || option.state.testFlag(QStyle::State_MouseOver)) {
        painter->setBrush(theme.color(isSelected ? Role::accentFill : Role::hover));
        painter->drawRoundedRect(row, rowRadius, rowRadius);
    }
    const QRectF picture(option.rect.left() + symbolLeft, option.rect.center().y() + 0.5 - symbolSize / 2.0,
                         symbolSize, symbolSize);
    Symbol::paint(*painter, picture, symbol, theme.color(isSelected ? Role::onFill : Role::accent));
    painter->setFont(theme.font(FontRole::body));
    painter->setPen(theme.color(isSelected ? Role::onFill : Role::primaryText));
    const QRect textRect = option.rect.adjusted(textLeft, 0, -inset - 8, 0);
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(title, Qt::ElideRight, textRect.width()));
    const bool showsFocus = option.state.testFlag(QStyle::State_HasFocus) &&
                            option.state.testFlag(QStyle::State_KeyboardFocusChange);
    if (showsFocus)
        FocusRing::paint(*painter, row, rowRadius, isSelected);
    painter->restore();
}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool isHeader = index.data(SidebarModel::symbolRole).toString().isEmpty();
    const int minimumHeight = isHeader ? headerHeight : Metrics::sidebarRow;
    return {option.rect.width(), std::max(minimumHeight, option.fontMetrics.height() + 6)};
}

} // namespace keelbright
