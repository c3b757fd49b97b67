#include "Keelbright/screens/organizer/ProposalModel.h"

namespace keelbright {

ProposalModel::ProposalModel(const OrganizerVM& vm, QObject* parent)
    : GroupListModel(parent)
    , m_vm(vm)
{}

ListRow ProposalModel::makeRow(const OrganizeProposal& proposal) const
{
    const QString count = QString::number(proposal.files.size());
    ListRow row;
    row.symbol = icon(proposal.category);
    row.title = folderName(proposal.category);
    row.detail = proposal.files.size() == 1 ? tr("%1 file").arg(count) : tr("%1 files").arg(count);
    row.value = proposal.formattedSize();
    return row;
}

Qt::CheckState ProposalModel::markOf(const OrganizeProposal& proposal) const
{
    return m_vm.selectedCategories().contains(proposal.id) ? Qt::Checked : Qt::Unchecked;
}

} // namespace keelbright
