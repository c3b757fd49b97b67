#include "Keelbright/screens/organizer/ProposalPanel.h"

#include "Keelbright/screens/organizer/DestinationTag.h"
#include "Keelbright/screens/organizer/FileProposalModel.h"
#include "Keelbright/screens/organizer/ProposalModel.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Button.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

namespace keelbright {

using namespace Qt::StringLiterals;

ProposalPanel::ProposalPanel(OrganizerVM& vm, Workspace& workspace, QWidget* parent)
    : GroupItemsPanel({.hint = tr("Click a category on the left to preview which files will be moved."),
                       .hintSymbol = u"folder.badge.gearshape"_s,
                       .toggle = tr("Select"),
                       .list = tr("Files")},
                      parent)
    , m_vm(vm)
    , m_model(new FileProposalModel(vm, this))
    , m_destination(new DestinationTag(this))
{
    // Beside the texts of the header there is no room for it in a small window.
    addBelowHeader(m_destination);
    list()->setRowModel(m_model);
    connect(list(), &RowListView::markPressed, this, [this](int row) {
        const OrganizeProposal* proposal = m_vm.selectedProposal();
        const QUuid id = m_model->itemAt(row).id;
        if (proposal != nullptr)
            m_vm.setFile(id, !m_vm.selectedFiles().contains(id), proposal->id);
    });
    connect(list(), &RowListView::actionPressed, this, [this, &workspace](int row, RowActionId action) {
        if (action == RowActionId::reveal)
            workspace.reveal(m_model->itemAt(row).source);
    });
    connect(toggle(), &QPushButton::clicked, this, [this] {
        if (const OrganizeProposal* proposal = m_vm.selectedProposal())
            m_vm.toggleCategory(proposal->id);
    });
}

void ProposalPanel::redraw()
{
    const OrganizeProposal* proposal = m_vm.selectedProposal();
    if (proposal == nullptr) {
        showHint();
        return;
    }
    showItems(proposal->id.toString(), *m_model, proposal->files);
    redrawHeader(*proposal);
}

void ProposalPanel::redrawHeader(const OrganizeProposal& proposal)
{
    header()->setTitle(shownName(proposal.category));
    header()->setSubtitle(
        tr("%n files · %1", nullptr, pluralNumber(proposal.files.size())).arg(proposal.formattedSize()));
    header()->setSymbol(icon(proposal.category), Role::accent);
    const std::optional<FileURL>& folder = m_vm.targetFolder();
    m_destination->setVisible(folder.has_value());
    if (folder)
        m_destination->setText(folder->lastPathComponent() + u'/' + folderName(proposal.category));
    const bool isSelected = m_vm.selectedCategories().contains(proposal.id);
    toggle()->setCaption(isSelected ? tr("Deselect") : tr("Select"));
}

} // namespace keelbright
