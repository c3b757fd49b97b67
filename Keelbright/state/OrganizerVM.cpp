#include "Keelbright/state/OrganizerVM.h"

#include "Keelbright/state/Delivery.h"
#include "Keelbright/state/FolderChooser.h"
#include "Keelbright/state/L10n.h"
#include "Keelbright/state/StoredTexts.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/storage/OrganizerService.h"

#include <QPointer>

namespace keelbright {

const QList<OrganizerVM::QuickTarget>& OrganizerVM::allQuickTargets()
{
    static const QList<QuickTarget> targets{QuickTarget::desktop, QuickTarget::downloads};
    return targets;
}

QString OrganizerVM::rawValue(QuickTarget target)
{
    switch (target) {
    case QuickTarget::desktop:
        return QStringLiteral(QT_TRANSLATE_NOOP("OrganizerVM", "Desktop"));
    case QuickTarget::downloads:
        return QStringLiteral(QT_TRANSLATE_NOOP("OrganizerVM", "Downloads"));
    }
    Q_UNREACHABLE();
}

OrganizerVM::OrganizerVM(ActivityStore& activityStore, FolderChooser& folderChooser, Clock clock,
                         QObject* parent)
    : QObject(parent)
    , m_activityStore(activityStore)
    , m_folderChooser(folderChooser)
    , m_clock(std::move(clock))
{}

void OrganizerVM::scan(QuickTarget target)
{
    setActiveTarget(target);
    const UserFolder folder = target == QuickTarget::desktop ? UserFolder::desktop : UserFolder::downloads;
    scan(MachinePlaces(FileManager::defaultManager()).userFolder(folder));
}

void OrganizerVM::pickCustomFolder()
{
    const FolderChooserRequest request{.message = tr("Select a folder to organise."), .prompt = tr("Choose")};
    // The chooser may stay open for longer than the screen does.
    m_folderChooser.chooseFolders(request, [model = QPointer(this)](const QList<FileURL>& urls) {
        if (!model || urls.isEmpty())
            return;
        model->setActiveTarget(std::nullopt);
        model->scan(urls.first());
    });
}

void OrganizerVM::scan(const FileURL& folder)
{
    setTargetFolder(folder);
    setIsScanning(true);
    setProposals({});
    selectNothing();
    setSelectedProposalID(std::nullopt);

    const auto propose = [folder] { return OrganizerService::propose(folder); };
    deliver(TaskPools::runApart(TaskPools::Priority::userInitiated, propose), this,
            [this](const QList<OrganizeProposal>& plan) { showPlan(plan); });
}

void OrganizerVM::showPlan(const QList<OrganizeProposal>& plan)
{
    setProposals(plan);
    selectAll();
    showFirstProposal();
    setIsScanning(false);
}

void OrganizerVM::selectAll()
{
    m_selection.setIds({});
    m_selection.selectAll();
    m_selectedCategories.clear();
    for (const OrganizeProposal& proposal : proposals())
        m_selectedCategories.insert(proposal.id);
    Q_EMIT changed();
}

void OrganizerVM::selectNothing()
{
    m_selection.setIds({});
    m_selectedCategories.clear();
    Q_EMIT changed();
}

void OrganizerVM::updateCategory(const OrganizeProposal& proposal)
{
    if (m_selection.state(proposal) == SelectionState::all)
        m_selectedCategories.insert(proposal.id);
    else
        m_selectedCategories.remove(proposal.id);
}

void OrganizerVM::toggleCategory(const QUuid& id)
{
    const OrganizeProposal* proposal = m_selection.group(id);
    if (!proposal)
        return;
    m_selection.setSelected(*proposal, !m_selectedCategories.contains(id));
    updateCategory(*proposal);
    Q_EMIT changed();
}

void OrganizerVM::toggleSelectAll()
{
    if (m_selectedCategories.size() == proposals().size())
        selectNothing();
    else
        selectAll();
}

void OrganizerVM::setFile(const QUuid& id, bool selected, const QUuid& proposalID)
{
    m_selection.setSelected(id, selected);
    if (const OrganizeProposal* proposal = m_selection.group(proposalID))
        updateCategory(*proposal);
    Q_EMIT changed();
}

QString OrganizerVM::selectedSizeFormatted() const
{
    return L10n::Formatters::bytes(m_selection.selectedBytes());
}

void OrganizerVM::execute()
{
    const qint64 bytes = m_selection.selectedBytes();
    OrganizedFiles done;
    const OrganizerService::ExecutionResult result =
        OrganizerService::execute(proposals(), selectedFiles(), &done);
    if (result.moved > 0) {
        logRun(result.moved, bytes);
        Q_EMIT organised(done);
    }
    QList<OrganizeProposal> remaining = m_selection.groupsWithout(selectedFiles());
    for (OrganizeProposal& proposal : remaining)
        proposal.id = QUuid::createUuid();
    setProposals(remaining);
    selectAll();
    if (selectedProposalID() && m_selection.shown() == nullptr)
        showFirstProposal();
}

void OrganizerVM::logRun(qint64 moved, qint64 bytes) const
{
    const char* detail = moved == 1 ? StoredTexts::fileSorted : StoredTexts::filesSorted;
    QStringList values{QString::number(moved)};
    if (m_targetFolder) {
        detail = moved == 1 ? StoredTexts::fileSortedIn : StoredTexts::filesSortedIn;
        values.append(m_targetFolder->lastPathComponent());
    }
    m_activityStore.append({
        .id = QUuid::createUuid(),
        .timestamp = m_clock(),
        .kind = ActivityEntry::Kind::organise,
        .title = StoredTexts::stored(StoredTexts::filesOrganised),
        .detail = StoredTexts::stored(detail, values),
        .bytesAffected = bytes,
        .itemCount = moved,
    });
}

void OrganizerVM::setProposals(const QList<OrganizeProposal>& proposals)
{
    m_selection.setGroups(proposals);
    Q_EMIT changed();
}

void OrganizerVM::setSelectedProposalID(std::optional<QUuid> id)
{
    m_selection.setShownID(id);
    Q_EMIT changed();
}

void OrganizerVM::showFirstProposal()
{
    m_selection.showFirst();
    Q_EMIT changed();
}

void OrganizerVM::setIsScanning(bool isScanning)
{
    m_isScanning = isScanning;
    Q_EMIT changed();
}

void OrganizerVM::setShowConfirm(bool show)
{
    m_showConfirm = show;
    Q_EMIT showConfirmChanged();
    Q_EMIT changed();
}

void OrganizerVM::setTargetFolder(const FileURL& folder)
{
    m_targetFolder = folder;
    Q_EMIT changed();
}

void OrganizerVM::setActiveTarget(std::optional<QuickTarget> target)
{
    m_activeTarget = target;
    Q_EMIT changed();
}

} // namespace keelbright
