#pragma once

class QWidget;

namespace keelbright {

class RowListView;

/// A card around a list, as high as the rows need and the room allows. Takes ownership of the list.
[[nodiscard]] QWidget* makeListCard(RowListView* list, QWidget* parent);

/// Call when the number of rows has changed.
void fitListCard(RowListView* list);

} // namespace keelbright
