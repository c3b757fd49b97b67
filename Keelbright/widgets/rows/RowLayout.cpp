#include "Keelbright/widgets/rows/RowLayout.h"

#include "Keelbright/widgets/DisplayText.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QFontMetrics>
#include <cmath>

namespace keelbright {

namespace {

constexpr int gap = 12;
constexpr int smallGap = 8;
constexpr int symbolSize = 18;
constexpr int dotSize = 9;
constexpr int chevronSize = 14;
constexpr int buttonGap = 2;
constexpr int barHeight = 3;
constexpr int barBottom = 5;
constexpr int denseBarBottom = 2;
constexpr int minimumTitleWidth = 60;
constexpr int minimumDetailWidth = 40;

int textWidth(FontRole font, const QString& text)
{
    return QFontMetrics(Theme::instance().font(font)).horizontalAdvance(displayText(text)) + 1;
}

int lineHeight(FontRole font)
{
    return QFontMetrics(Theme::instance().font(font)).height();
}

/// The free space of a row, from which the parts at both ends are taken, the outermost first.
class Room
{
public:
    explicit Room(const QRect& rect)
        : m_rect(rect)
    {}

    [[nodiscard]] QRect takeLeft(QSize size, int spacing)
    {
        const QRect taken = centred(m_rect.left(), size);
        m_rect.setLeft(m_rect.left() + size.width() + spacing);
        return taken;
    }

    [[nodiscard]] QRect takeRight(QSize size, int spacing)
    {
        const QRect taken = centred(m_rect.right() + 1 - size.width(), size);
        m_rect.setRight(m_rect.right() - size.width() - spacing);
        return taken;
    }

    [[nodiscard]] const QRect& rest() const { return m_rect; }

private:
    [[nodiscard]] QRect centred(int left, QSize size) const
    {
        return {QPoint(left, m_rect.top() + (m_rect.height() - size.height()) / 2), size};
    }

    QRect m_rect;
};

int pictureSize(const ListRow& row)
{
    switch (row.picture) {
    case ListRow::Picture::tile:
    case ListRow::Picture::disc:
    case ListRow::Picture::image:
        return Metrics::tile;
    case ListRow::Picture::dot:
        return dotSize;
    case ListRow::Picture::symbol:
        return row.symbol.isEmpty() ? 0 : symbolSize;
    }
    return 0;
}

void layOutLeading(const ListRow& row, Room& room, RowLayout& layout)
{
    constexpr int rankWidth = 26;
    if (row.mark != ListRow::Mark::none)
        layout.mark = room.takeLeft({RowMetrics::markSize, RowMetrics::markSize}, gap);
    if (!row.rank.isEmpty())
        layout.rank = room.takeLeft({rankWidth, lineHeight(FontRole::secondary)}, gap);
    if (const int size = pictureSize(row); size > 0)
        layout.picture = room.takeLeft({size, size}, gap);
}

void layOutTrailing(const ListRow& row, Room& room, RowLayout& layout)
{
    if (row.hasChevron)
        layout.chevron = room.takeRight({chevronSize, chevronSize}, row.actions.isEmpty() ? smallGap : 4);
    constexpr int side = Metrics::compactButtonHeight;
    // Taken from the right, so the last action comes first.
    for (qsizetype i = row.actions.size() - 1; i >= 0; --i) {
        const RowAction& action = row.actions.at(i);
        const int width = action.symbol.isEmpty() ? rowButtonWidth(action) : side;
        layout.actions.prepend(room.takeRight({width, side}, i == 0 ? smallGap : buttonGap));
    }
    for (qsizetype i = row.actions.size(); i < row.actionRoom; ++i)
        (void)room.takeRight({side, side}, buttonGap);
    if (row.value.isEmpty())
        return;
    const QFont font = Theme::instance().font(FontRole::body);
    const int width = static_cast<int>(std::ceil(TabularDigits::width(font, row.value)));
    layout.value = room.takeRight({width, QFontMetrics(font).height()}, gap);
}

/// A text that becomes shorter where there is too little room, and the parts after it, with their
/// widths, which do not.
void layOutLine(const QRect& line, int wantedWidth, int minimumWidth,
                const QList<std::pair<QRect*, int>>& partsAfter, QRect& text)
{
    int room = line.width();
    for (const auto& [rect, width] : partsAfter)
        room -= width > 0 ? width + smallGap : 0;
    text = QRect(line.left(), line.top(), std::clamp(wantedWidth, 0, std::max(room, minimumWidth)),
                 line.height());
    int x = text.right() + 1 + smallGap;
    for (const auto& [rect, width] : partsAfter) {
        if (width == 0)
            continue;
        // A part without room is left out; a screen reader still reads it.
        if (x + width <= line.right() + 2)
            *rect = QRect(x, line.top(), width, line.height());
        x += width + smallGap;
    }
}

void layOutTexts(const ListRow& row, const QRect& rest, RowLayout& layout)
{
    constexpr int tagPadding = 12;
    const bool hasDetail = !row.detail.isEmpty() || !row.capsule.isEmpty();
    const int titleHeight = lineHeight(FontRole::bodyStrong);
    const int detailHeight = lineHeight(FontRole::secondary);
    const int height = titleHeight + (hasDetail ? detailHeight : 0);
    const QRect title(rest.left(), rest.top() + (rest.height() - height) / 2, rest.width(), titleHeight);
    const int tag = row.tag.isEmpty() ? 0 : textWidth(FontRole::captionStrong, row.tag) + tagPadding;
    const int aside = row.aside.isEmpty() ? 0 : textWidth(FontRole::secondary, row.aside);
    layOutLine(title, textWidth(FontRole::bodyStrong, row.title), minimumTitleWidth,
               {{&layout.tag, tag}, {&layout.aside, aside}}, layout.title);
    if (!hasDetail)
        return;
    QRect detail(rest.left(), title.bottom() + 1, rest.width(), detailHeight);
    if (!row.detailSymbol.isEmpty()) {
        const int side = detailHeight - 3;
        layout.detailSymbol = QRect(detail.left(), detail.top() + 2, side, side);
        detail.setLeft(detail.left() + side + 4);
    }
    const int capsule =
        row.capsule.isEmpty() ? 0 : textWidth(FontRole::captionStrong, row.capsule) + tagPadding;
    layOutLine(detail, textWidth(FontRole::secondary, row.detail), minimumDetailWidth,
               {{&layout.capsule, capsule}}, layout.detail);
}

} // namespace

int rowButtonWidth(const RowAction& action)
{
    constexpr int padding = 10;
    return textWidth(FontRole::secondary, action.name) - 1 + 2 * padding;
}

RowLayout layOutRow(const ListRow& row, const QRect& rect, int padding)
{
    RowLayout layout;
    QRect inner = rect.adjusted(padding, 0, -padding, 0);
    if (row.bar) {
        const double fraction = std::clamp(*row.bar, 0.0, 1.0);
        const int bottom = rect.height() < Metrics::row ? denseBarBottom : barBottom;
        layout.bar = QRect(inner.left(), rect.bottom() - bottom - barHeight,
                           static_cast<int>(std::round(inner.width() * fraction)), barHeight);
        inner.setBottom(inner.bottom() - barHeight - 2);
    }
    // The symbol, which is smaller than its button, ends where other rows end.
    if (!row.hasChevron && !row.actions.isEmpty() && !row.actions.last().symbol.isEmpty())
        inner.setRight(inner.right() + 5);
    Room room(inner);
    layOutLeading(row, room, layout);
    layOutTrailing(row, room, layout);
    layOutTexts(row, room.rest(), layout);
    return layout;
}

} // namespace keelbright
