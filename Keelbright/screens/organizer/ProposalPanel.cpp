#include "Keelbright/screens/organizer/ProposalPanel.h"

#include "Keelbright/screens/organizer/DestinationTag.h"
#include "Keelbright/screens/organizer/FileProposalModel.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QHBoxLayout>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

ProposalPanel::ProposalPanel(OrganizerVM& vm, Workspace& workspace, QWidget* parent)
    : Ground(Role::card, parent)
    , m_vm(vm)
    , m_model(new FileProposalModel(vm, this))
    , m_header(new PanelHeader({}, {}, {}, Role::accent, this))
    , m_destination(new DestinationTag(this))
    , m_toggle(new Button(Button::Kind::bordered, tr("Select"), {}, this))
    , m_list(new RowListView(RowListView::Look::table, tr("Files"), this))
    , m_states(new QStackedLayout)
{
    content()->addLayout(m_states);
    m_states->addWidget(new EmptyStateView(
        tr("Select a category"), tr("Click a category on the left to preview which files will be moved."),
        u"folder.badge.gearshape"_s, this));
    m_states->addWidget(makeDetail());
    connectList(workspace);
}

QWidget* ProposalPanel::makeDetail()
{
    auto* detail = new QWidget(this);
    auto* column = new QVBoxLayout(detail);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_header->addTrailing(m_toggle);
    column->addWidget(m_header);
    // Not in the head, where it would leave no room for the words in a small window.
    auto* destination = new QHBoxLayout;
    destination->setContentsMargins(Metrics::panelPadding, 0, Metrics::panelPadding, 10);
    destination->addWidget(m_destination);
    destination->addStretch();
    column->addLayout(destination);
    column->addWidget(new Separator(Qt::Horizontal, detail));
    column->addWidget(m_list, 1);
    return detail;
}

void ProposalPanel::connectList(Workspace& workspace)
{
    m_list->setRowModel(m_model);
    connect(m_list, &RowListView::markPressed, this, [this](int row) {
        const OrganizeProposal* proposal = shownProposal();
        const QUuid id = m_model->files().at(row).id;
        if (proposal != nullptr)
            m_vm.setFile(id, !m_vm.selectedFiles().contains(id), proposal->id);
    });
    connect(m_list, &RowListView::actionPressed, this,
            [this, &workspace](int row) { workspace.reveal(m_model->files().at(row).source); });
    connect(m_toggle, &QPushButton::clicked, this, [this] {
        if (const OrganizeProposal* proposal = shownProposal())
            m_vm.toggleCategory(proposal->id);
    });
}

const OrganizeProposal* ProposalPanel::shownProposal() const
{
    const auto id = m_vm.selectedProposalID();
    const auto& proposals = m_vm.proposals();
    if (!id)
        return nullptr;
    const auto found = std::ranges::find(proposals, *id, &OrganizeProposal::id);
    return found == proposals.end() ? nullptr : &*found;
}

void ProposalPanel::redraw()
{
    const OrganizeProposal* proposal = shownProposal();
    m_states->setCurrentIndex(proposal != nullptr ? 1 : 0);
    if (proposal == nullptr)
        return;
    m_model->setFiles(proposal->files);
    if (std::exchange(m_shownID, proposal->id) != proposal->id)
        m_list->scrollToTop();
    redrawHeader(*proposal);
}

void ProposalPanel::redrawHeader(const OrganizeProposal& proposal)
{
    const QString name = folderName(proposal.category);
    m_header->setTitle(name);
    m_header->setSubtitle(
        tr("%1 files · %2").arg(QString::number(proposal.files.size()), proposal.formattedSize()));
    m_header->setSymbol(icon(proposal.category), Role::accent);
    const std::optional<FileURL>& folder = m_vm.targetFolder();
    m_destination->setVisible(folder.has_value());
    if (folder)
        m_destination->setText(folder->lastPathComponent() + u'/' + name);
    const bool isSelected = m_vm.selectedCategories().contains(proposal.id);
    m_toggle->setCaption(isSelected ? tr("Deselect") : tr("Select"));
}

} // namespace keelbright
