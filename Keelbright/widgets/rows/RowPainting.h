#pragma once

#include "Keelbright/widgets/rows/RowLayout.h"

class QPainter;

namespace keelbright::RowPainting {

/// The background that a row is drawn on.
struct Surface
{
    Role base = Role::card;
    bool isTinted = false; ///< as in a selected row
};

/// Paints the row except its background and its actions.
void paintRow(QPainter& painter, const ListRow& row, const RowLayout& layout, Surface surface);
void paintAction(QPainter& painter, const RowAction& action, const QRect& rect, bool isHovered);

} // namespace keelbright::RowPainting
