#pragma once

#include "Keelbright/state/OrganizerVM.h"
#include "Keelbright/widgets/rows/RowModel.h"

namespace keelbright {

/// The categories of a plan as rows that can be ticked as a whole.
class ProposalModel : public RowModel
{
    Q_OBJECT

public:
    /// `vm` outlives the model.
    explicit ProposalModel(const OrganizerVM& vm, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;
    [[nodiscard]] QString titleAt(int row) const override;

    /// Shows what the screen's model has now.
    void update();

    [[nodiscard]] QUuid idAt(int row) const { return m_proposals.at(row).id; }

    /// -1 for none.
    [[nodiscard]] int rowOf(const std::optional<QUuid>& id) const;

private:
    const OrganizerVM& m_vm;
    QList<OrganizeProposal> m_proposals;
    QStringList m_sizes; ///< would cost a walk over all files for each painting
};

} // namespace keelbright
