#pragma once

#include "Keelbright/widgets/rows/ListRow.h"

#include <QRect>

namespace keelbright {

/// Where the parts of a row stand; an empty rectangle for what it does not have. What paints a row,
/// what asks where the pointer is and what places its buttons all stand on this.
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
    QRect bar; ///< as long as its fraction
    QList<QRect> actions;
    QRect chevron;
};

namespace RowMetrics {
inline constexpr int tableRow = Metrics::row + 1; ///< with its line
inline constexpr int panelRow = 50;
inline constexpr int header = 38;
inline constexpr int tablePadding = Metrics::panelPadding;
inline constexpr int panelInset = 6; ///< around the field of a row
inline constexpr int panelRadius = 8;
inline constexpr int panelPadding = Metrics::panelPadding - panelInset; ///< within the field
inline constexpr int markSize = 15;
} // namespace RowMetrics

/// Lays the row out in `rect`, whose ends are kept free by `padding`.
[[nodiscard]] RowLayout layOutRow(const ListRow& row, const QRect& rect, int padding);

/// The width of a button with words within a row.
[[nodiscard]] int rowButtonWidth(const RowAction& action);

} // namespace keelbright
