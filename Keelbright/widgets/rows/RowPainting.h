#pragma once

#include "Keelbright/widgets/rows/RowLayout.h"

class QPainter;

namespace keelbright::RowPainting {

/// What a part of a row is drawn on.
struct Surface
{
    Role base = Role::card;
    bool isTinted = false; ///< selected: faint words would be lost
};

/// All of the row but its ground and its actions.
void paintRow(QPainter& painter, const ListRow& row, const RowLayout& layout, Surface surface);
void paintAction(QPainter& painter, const RowAction& action, const QRect& rect, bool isHovered);

} // namespace keelbright::RowPainting
