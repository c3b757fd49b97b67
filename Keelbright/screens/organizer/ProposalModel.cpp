#include "Keelbright/screens/organizer/ProposalModel.h"

namespace keelbright {

using namespace Qt::StringLiterals;

ProposalModel::ProposalModel(const OrganizerVM& vm, QObject* parent)
    : RowModel(parent)
    , m_vm(vm)
{}

int ProposalModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_proposals.size());
}

ListRow ProposalModel::rowAt(int row) const
{
    const OrganizeProposal& proposal = m_proposals.at(row);
    const QString count = QString::number(proposal.files.size());
    ListRow shown;
    shown.mark = ListRow::Mark::circle;
    shown.markState = m_vm.selectedCategories().contains(proposal.id) ? Qt::Checked : Qt::Unchecked;
    shown.symbol = icon(proposal.category);
    shown.title = folderName(proposal.category);
    shown.detail = proposal.files.size() == 1 ? tr("%1 file").arg(count) : tr("%1 files").arg(count);
    shown.value = m_sizes.at(row);
    return shown;
}

QString ProposalModel::titleAt(int row) const
{
    return folderName(m_proposals.at(row).category);
}

int ProposalModel::rowOf(const std::optional<QUuid>& id) const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (m_proposals.at(row).id == id)
            return row;
    }
    return -1;
}

void ProposalModel::update()
{
    if (m_proposals == m_vm.proposals()) {
        announceAllRows();
        return;
    }
    beginResetModel();
    m_proposals = m_vm.proposals();
    m_sizes.clear();
    for (const OrganizeProposal& proposal : std::as_const(m_proposals))
        m_sizes.append(proposal.formattedSize());
    endResetModel();
}

} // namespace keelbright
