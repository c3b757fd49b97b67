#pragma once

#include "Keelbright/state/JunkCleanerVM.h"
#include "Keelbright/widgets/rows/RowModel.h"

namespace keelbright {

/// The colour of a kind of junk, by its `id`.
[[nodiscard]] Role junkCategoryColor(const QString& id);

/// The kinds of junk as rows, with how much of each is ticked.
class JunkCategoryModel : public RowModel
{
    Q_OBJECT

public:
    /// `vm` outlives the model.
    explicit JunkCategoryModel(const JunkCleanerVM& vm, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

    /// Shows what the screen's model has now.
    void update();

    [[nodiscard]] const JunkCategory& categoryAt(int row) const { return m_categories.at(row); }

    /// -1 for none.
    [[nodiscard]] int rowOf(const std::optional<QString>& id) const;

private:
    /// What would cost a walk over all items for each painting.
    struct Numbers
    {
        QString size;
        JunkCleanerVM::SelectionState state = JunkCleanerVM::SelectionState::none;
    };

    void updateCategories();
    void updateSelection();

    const JunkCleanerVM& m_vm;
    QList<JunkCategory> m_categories;
    QList<Numbers> m_numbers;
};

} // namespace keelbright
