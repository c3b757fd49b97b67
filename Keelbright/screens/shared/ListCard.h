#pragma once

class QWidget;

namespace keelbright {

class RowListView;

/// A card around a list that takes what height there is, but no more than the rows ask for. Takes the
/// list over.
[[nodiscard]] QWidget* makeListCard(RowListView* list, QWidget* parent);

/// Call when the number of rows has changed.
void fitListCard(RowListView* list);

} // namespace keelbright
