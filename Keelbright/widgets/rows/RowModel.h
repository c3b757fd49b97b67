#pragma once

#include "Keelbright/widgets/rows/ListRow.h"

#include <QAbstractListModel>

namespace keelbright {

/// A long list as rows. A subclass gives its rows and announces changes as any model does; it also
/// says which rows are headers of a group.
class RowModel : public QAbstractListModel
{
    Q_OBJECT

public:
    static constexpr int headerRole = Qt::UserRole + 1;

    using QAbstractListModel::QAbstractListModel;

    /// A row as it stands on screen; only for rows that exist and are no header. Called for each row
    /// that is seen, so it costs no more than putting words together.
    [[nodiscard]] virtual ListRow rowAt(int row) const = 0;

    /// The words of a row that is the header of a group; empty for any other.
    [[nodiscard]] virtual QString headerAt(int row) const;

    /// Its title alone, which typing letters looks for in every row; to be given by lists that grow.
    [[nodiscard]] virtual QString titleAt(int row) const;

    /// What a screen reader says of the row: its words and its numbers.
    [[nodiscard]] virtual QString accessibleText(int row) const;

    /// Titles, accessible texts and marks, from the above.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Announces that rows look otherwise than before.
    void announceRows(int first, int last);
    void announceAllRows();
};

} // namespace keelbright
