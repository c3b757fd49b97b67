#pragma once

#include "Keelbright/widgets/rows/ListRow.h"

#include <QRect>

namespace keelbright {

/// The places of a row's parts; an empty rectangle for a part that the row does not have. Painting, the
/// mouse and the row's buttons all use it.
struct RowLayout
{
    QRect mark;
    QRect rank;
    QRect picture;
    QRect title;
    QRect tag;
    QRect aside;
    QRect detailSymbol;
    QRect detail;
    QRect capsule;
    QRect value;
    QRect bar; ///< its width follows the fraction
    QList<QRect> actions;
    QRect chevron;
};

namespace RowMetrics {
inline constexpr int tableRow = Metrics::row + 1; ///< with its line
inline constexpr int denseRow = 41;               ///< the same in a low window
inline constexpr int panelRow = 50;
inline constexpr int header = 38;
inline constexpr int tablePadding = Metrics::panelPadding;
/// With the frame of the card it is the padding of the rows that have a widget each.
inline constexpr int paddingInCard = Metrics::cardPadding - 1;
inline constexpr int panelInset = 6; ///< around the field of a row
inline constexpr int panelRadius = 8;
inline constexpr int panelPadding = Metrics::panelPadding - panelInset; ///< within the field
inline constexpr int markSize = 15;
} // namespace RowMetrics

/// Lays the row out in `rect`, with `padding` free at both ends.
[[nodiscard]] RowLayout layOutRow(const ListRow& row, const QRect& rect, int padding);

/// The width of a button with text in a row.
[[nodiscard]] int rowButtonWidth(const RowAction& action);

} // namespace keelbright
