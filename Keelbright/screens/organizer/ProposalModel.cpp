#include "Keelbright/screens/organizer/ProposalModel.h"

#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>

namespace keelbright {

ProposalModel::ProposalModel(const OrganizerVM& vm, QObject* parent)
    : GroupListModel(parent)
    , m_vm(vm)
{}

ListRow ProposalModel::makeRow(const OrganizeProposal& proposal) const
{
    const qsizetype count = proposal.files.size();
    ListRow row;
    row.symbol = icon(proposal.category);
    row.title = shownName(proposal.category);
    row.detail = count == 1 ? tr("1 file") : tr("%n files", nullptr, pluralNumber(count));
    row.value = proposal.formattedSize();
    return row;
}

Qt::CheckState ProposalModel::markOf(const OrganizeProposal& proposal) const
{
    return m_vm.selectedCategories().contains(proposal.id) ? Qt::Checked : Qt::Unchecked;
}

QString shownName(FileCategory category)
{
    return QCoreApplication::translate("FileCategory", rawValue(category).toUtf8().constData());
}

} // namespace keelbright
