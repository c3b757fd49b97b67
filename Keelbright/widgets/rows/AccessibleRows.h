#pragma once

class QListView;

namespace keelbright {

/// Gives the rows of the list to a screen reader as what they are. To be called first of all in the list's
/// construction, before anybody asks for its name.
///
/// A row that can be selected is a list item with the name that the model gives as `Qt::AccessibleTextRole`
/// or `Qt::DisplayRole`; one with a `Qt::CheckStateRole` can be ticked, which is its first action in a
/// `RowListView`. To press a row does what a click does. A row that can't be selected is a heading, or a
/// separator where it has no text.
void useAccessibleRows(QListView& list);

} // namespace keelbright
