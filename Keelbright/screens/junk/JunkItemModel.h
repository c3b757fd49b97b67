#pragma once

#include "Keelbright/state/FolderLookup.h"
#include "Keelbright/state/JunkCleanerVM.h"
#include "Keelbright/widgets/rows/RowModel.h"

namespace keelbright {

/// The items of one kind of junk as rows that can be ticked.
class JunkItemModel : public RowModel
{
    Q_OBJECT

public:
    /// `vm` outlives the model.
    explicit JunkItemModel(const JunkCleanerVM& vm, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

    [[nodiscard]] const QList<JunkItem>& items() const { return m_items; }

    void setItems(const QList<JunkItem>& items);
    /// -1 for none.
    [[nodiscard]] int rowOf(const QUuid& id) const;

private:
    [[nodiscard]] QString symbolOf(const JunkItem& item) const;

    const JunkCleanerVM& m_vm;
    FolderLookup* m_folders;
    QList<JunkItem> m_items;
};

} // namespace keelbright
