#pragma once

#include "Keelbright/state/OrganizerVM.h"
#include "Keelbright/widgets/rows/ItemRowModel.h"

namespace keelbright {

/// The planned moves of one category as rows that can be ticked.
class FileProposalModel : public ItemRowModel<FileProposal>
{
    Q_OBJECT

public:
    /// `vm` outlives the model.
    explicit FileProposalModel(const OrganizerVM& vm, QObject* parent = nullptr);

    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

private:
    const OrganizerVM& m_vm;
};

} // namespace keelbright
