#pragma once

#include "Keelbright/state/FolderLookup.h"
#include "Keelbright/state/JunkCleanerVM.h"
#include "Keelbright/widgets/rows/ItemRowModel.h"

namespace keelbright {

/// The items of one kind of junk as rows that can be ticked.
class JunkItemModel : public ItemRowModel<JunkItem>
{
    Q_OBJECT

public:
    /// `vm` outlives the model.
    explicit JunkItemModel(const JunkCleanerVM& vm, QObject* parent = nullptr);

    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

protected:
    void prepareRows() override;

private:
    [[nodiscard]] QString symbolOf(const JunkItem& item) const;

    const JunkCleanerVM& m_vm;
    FolderLookup* m_folders;
};

} // namespace keelbright
