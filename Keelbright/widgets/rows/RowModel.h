#pragma once

#include "Keelbright/widgets/rows/ListRow.h"

#include <QAbstractListModel>

namespace keelbright {

/// The rows of a long list, some of which may be headers of a group. A subclass announces changes as any
/// model does.
class RowModel : public QAbstractListModel
{
    Q_OBJECT

public:
    static constexpr int headerRole = Qt::UserRole + 1;

    using QAbstractListModel::QAbstractListModel;

    /// A row as it is shown; only for rows that exist and are not headers. Called for each visible row, so
    /// it must be fast.
    [[nodiscard]] virtual ListRow rowAt(int row) const = 0;

    /// The text of a row that is the header of a group; empty for any other row.
    [[nodiscard]] virtual QString headerAt(int row) const;

    /// The title alone. Typing letters searches the titles of all rows, so a list that can be long
    /// overrides this with something cheaper than `rowAt`.
    [[nodiscard]] virtual QString titleAt(int row) const;

    /// The text that a screen reader reads: all texts and numbers of the row.
    [[nodiscard]] virtual QString accessibleText(int row) const;

    /// Titles, accessible texts and marks, from the functions above.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Announces that the rows from `first` to `last` have changed.
    void announceRows(int first, int last);
    void announceAllRows();
};

} // namespace keelbright
