#pragma once

#include "Keelbright/screens/shared/GroupListModel.h"
#include "Keelbright/state/OrganizerVM.h"

namespace keelbright {

/// What a category is called on screen; its folder has the same name in every language.
[[nodiscard]] QString shownName(FileCategory category);

/// The categories of a plan as rows that can be ticked as a whole.
class ProposalModel : public GroupListModel<OrganizeProposal>
{
    Q_OBJECT

public:
    /// `vm` outlives the model.
    explicit ProposalModel(const OrganizerVM& vm, QObject* parent = nullptr);

protected:
    [[nodiscard]] ListRow makeRow(const OrganizeProposal& proposal) const override;
    [[nodiscard]] Qt::CheckState markOf(const OrganizeProposal& proposal) const override;

private:
    const OrganizerVM& m_vm;
};

} // namespace keelbright
