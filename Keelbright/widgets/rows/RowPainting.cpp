#include "Keelbright/widgets/rows/RowPainting.h"

#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QPainter>

namespace keelbright::RowPainting {

namespace {

using namespace Qt::StringLiterals;

constexpr double tagTint = 0.12;
constexpr double markRadius = 4;

/// Faint text is less faint on a tint, where it could not be read.
Role readableRole(Role role, Surface surface)
{
    const bool isFaint = role == Role::secondaryText || role == Role::emptyMark;
    return isFaint && surface.isTinted ? Role::mutedText : textRole(role);
}

void paintText(QPainter& painter, const QRect& rect, FontRole font, Role color, const QString& text,
               Qt::TextElideMode elide = Qt::ElideRight)
{
    if (rect.isEmpty())
        return;
    const Theme& theme = Theme::instance();
    painter.setFont(theme.font(font));
    painter.setPen(theme.color(color));
    const QString shown = painter.fontMetrics().elidedText(displayText(text), elide, rect.width());
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, shown);
}

void paintSymbol(QPainter& painter, const QRectF& rect, const QString& key, Role color)
{
    Symbol::paint(painter, rect, key, Theme::instance().color(color));
}

void paintCheckBox(QPainter& painter, const QRectF& rect, bool isOn)
{
    const Theme& theme = Theme::instance();
    painter.setPen(isOn ? QPen(Qt::NoPen) : QPen(theme.color(Role::emptyMark), 1.2));
    painter.setBrush(isOn ? QBrush(theme.color(Role::accentFill)) : QBrush(theme.color(Role::card)));
    painter.drawRoundedRect(isOn ? rect : rect.adjusted(0.6, 0.6, -0.6, -0.6), markRadius, markRadius);
    if (isOn)
        paintSymbol(painter, rect.adjusted(1.5, 1.5, -1.5, -1.5), u"checkmark"_s, Role::onFill);
}

void paintMark(QPainter& painter, const ListRow& row, const QRect& rect)
{
    if (row.mark == ListRow::Mark::checkBox)
        paintCheckBox(painter, rect, row.markState == Qt::Checked);
    else if (row.mark == ListRow::Mark::circle) {
        const QRectF round = QRectF(rect).adjusted(-1.5, -1.5, 1.5, 1.5);
        if (row.markState == Qt::Unchecked)
            paintSymbol(painter, round, u"circle"_s, Role::emptyMark);
        else
            paintSymbol(painter, round,
                        row.markState == Qt::Checked ? u"checkmark.circle.fill"_s : u"minus.circle.fill"_s,
                        row.symbolColor);
    }
}

void paintOnGround(QPainter& painter, const ListRow& row, const QRectF& rect, Surface surface)
{
    constexpr double symbolShare = 0.56;
    const Theme& theme = Theme::instance();
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.tint(row.symbolColor, tileTint, surface.base));
    const double radius = row.picture == ListRow::Picture::disc ? rect.width() / 2 : Metrics::tileRadius;
    painter.drawRoundedRect(rect, radius, radius);
    const double inset = rect.width() * (1 - symbolShare) / 2;
    paintSymbol(painter, rect.adjusted(inset, inset, -inset, -inset), row.symbol, row.symbolColor);
}

void paintPicture(QPainter& painter, const ListRow& row, const QRectF& rect, Surface surface)
{
    switch (row.picture) {
    case ListRow::Picture::symbol:
        paintSymbol(painter, rect, row.symbol, row.symbolColor);
        break;
    case ListRow::Picture::tile:
    case ListRow::Picture::disc:
        paintOnGround(painter, row, rect, surface);
        break;
    case ListRow::Picture::dot:
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::instance().color(row.symbolColor));
        painter.drawEllipse(rect);
        break;
    case ListRow::Picture::image:
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(rect, row.image, QRectF(QPointF(), row.image.size()));
        break;
    }
}

void paintCapsule(QPainter& painter, const QRect& rect, Role hue, const QString& text, Surface surface)
{
    if (rect.isEmpty())
        return;
    const Theme& theme = Theme::instance();
    const QRectF ground = QRectF(rect).adjusted(0, 0.5, 0, -0.5);
    painter.setPen(Qt::NoPen);
    // On a tint of a similar hue another tint would not be seen.
    painter.setBrush(surface.isTinted ? theme.color(surface.base) : theme.tint(hue, tagTint, surface.base));
    painter.drawRoundedRect(ground, ground.height() / 2, ground.height() / 2);
    paintText(painter, rect.adjusted(6, 0, -4, 0), FontRole::captionStrong,
              hue == Role::secondaryText ? Role::mutedText : textRole(hue), text);
}

void paintNumbers(QPainter& painter, const ListRow& row, const RowLayout& layout, Surface surface)
{
    const Theme& theme = Theme::instance();
    if (!row.rank.isEmpty()) {
        painter.setPen(theme.color(readableRole(Role::secondaryText, surface)));
        TabularDigits::paint(painter, layout.rank, Qt::AlignRight | Qt::AlignVCenter,
                             theme.font(FontRole::secondary), row.rank);
    }
    if (!row.value.isEmpty()) {
        painter.setPen(theme.color(readableRole(row.valueColor, surface)));
        TabularDigits::paint(painter, layout.value, Qt::AlignRight | Qt::AlignVCenter,
                             theme.font(FontRole::body), row.value);
    }
}

void paintBar(QPainter& painter, const ListRow& row, const QRectF& rect)
{
    QColor color = Theme::instance().color(row.barColor);
    color.setAlphaF(static_cast<float>(row.barOpacity));
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(rect, rect.height() / 2, rect.height() / 2);
}

} // namespace

void paintRow(QPainter& painter, const ListRow& row, const RowLayout& layout, Surface surface)
{
    paintMark(painter, row, layout.mark);
    if (!layout.picture.isEmpty())
        paintPicture(painter, row, layout.picture, surface);
    paintText(painter, layout.title, FontRole::bodyStrong, Role::primaryText, row.title);
    paintCapsule(painter, layout.tag, row.tagColor, row.tag, surface);
    const Role faint = readableRole(Role::secondaryText, surface);
    paintText(painter, layout.aside, FontRole::secondary, faint, row.aside);
    if (!layout.detailSymbol.isEmpty())
        paintSymbol(painter, layout.detailSymbol, row.detailSymbol, faint);
    paintText(painter, layout.detail, FontRole::secondary, faint, row.detail, row.detailElide);
    paintCapsule(painter, layout.capsule, row.capsuleColor, row.capsule, surface);
    paintNumbers(painter, row, layout, surface);
    if (row.bar && layout.bar.width() > 0)
        paintBar(painter, row, layout.bar);
    if (row.hasChevron && row.chevronColor != Role::window)
        paintSymbol(painter, layout.chevron, u"chevron.right"_s, row.chevronColor);
}

void paintAction(QPainter& painter, const RowAction& action, const QRect& rect, bool isHovered)
{
    constexpr int symbolSize = 14;
    const Theme& theme = Theme::instance();
    const bool hasText = action.symbol.isEmpty();
    const QRectF ground = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (hasText) {
        painter.setPen(theme.color(Role::controlLine));
        painter.setBrush(theme.color(Role::card));
        painter.drawRoundedRect(ground, Metrics::buttonRadius, Metrics::buttonRadius);
    }
    if (isHovered) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(Role::hover));
        painter.drawRoundedRect(ground, Metrics::buttonRadius, Metrics::buttonRadius);
    }
    if (hasText) {
        painter.setFont(theme.font(FontRole::secondary));
        painter.setPen(theme.color(Role::accentText));
        painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, action.name);
        return;
    }
    const QRectF square(0, 0, symbolSize, symbolSize);
    paintSymbol(painter, square.translated(QRectF(rect).center() - square.center()), action.symbol,
                action.hue);
}

} // namespace keelbright::RowPainting
