#include "Keelbright/state/OrganizerVM.h"

#include "Keelbright/state/Delivery.h"
#include "Keelbright/state/FolderChooser.h"
#include "Keelbright/state/L10n.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/text/ByteSum.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/storage/OrganizerService.h"

#include <QPointer>
#include <QThreadPool>
#include <QtConcurrent>
#include <algorithm>

namespace keelbright {

namespace {

void insertFileIds(QSet<QUuid>& ids, const OrganizeProposal& proposal)
{
    for (const FileProposal& file : proposal.files)
        ids.insert(file.id);
}

} // namespace

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
    scan(FileManager::defaultManager().homeDirectory().appending(rawValue(target)));
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

    deliver(QtConcurrent::run(&TaskPools::userInitiated(), OrganizerService::propose, folder), this,
            [this](const QList<OrganizeProposal>& plan) { showPlan(plan); });
}

void OrganizerVM::showPlan(const QList<OrganizeProposal>& plan)
{
    setProposals(plan);
    selectAll();
    setSelectedProposalID(plan.isEmpty() ? std::optional<QUuid>() : plan.first().id);
    setIsScanning(false);
}

void OrganizerVM::selectAll()
{
    m_selectedCategories.clear();
    m_selectedFiles.clear();
    for (const OrganizeProposal& proposal : std::as_const(m_proposals)) {
        m_selectedCategories.insert(proposal.id);
        insertFileIds(m_selectedFiles, proposal);
    }
    announceSelection();
}

void OrganizerVM::selectNothing()
{
    m_selectedCategories.clear();
    m_selectedFiles.clear();
    announceSelection();
}

const OrganizeProposal* OrganizerVM::proposalWithID(const QUuid& id) const
{
    const auto found = std::ranges::find(m_proposals, id, &OrganizeProposal::id);
    return found == m_proposals.end() ? nullptr : &*found;
}

void OrganizerVM::toggleCategory(const QUuid& id)
{
    const OrganizeProposal* proposal = proposalWithID(id);
    if (!proposal)
        return;
    if (m_selectedCategories.remove(id)) {
        for (const FileProposal& file : proposal->files)
            m_selectedFiles.remove(file.id);
    } else {
        m_selectedCategories.insert(id);
        insertFileIds(m_selectedFiles, *proposal);
    }
    announceSelection();
}

void OrganizerVM::toggleSelectAll()
{
    if (m_selectedCategories.size() == m_proposals.size())
        selectNothing();
    else
        selectAll();
}

void OrganizerVM::setFile(const QUuid& id, bool selected, const QUuid& proposalID)
{
    if (selected) {
        m_selectedFiles.insert(id);
        const OrganizeProposal* proposal = proposalWithID(proposalID);
        const auto isSelected = [this](const FileProposal& file) {
            return m_selectedFiles.contains(file.id);
        };
        if (proposal && std::ranges::all_of(proposal->files, isSelected))
            m_selectedCategories.insert(proposalID);
    } else {
        m_selectedFiles.remove(id);
        m_selectedCategories.remove(proposalID);
    }
    announceSelection();
}

qint64 OrganizerVM::selectedBytes() const
{
    qint64 bytes = 0;
    for (const OrganizeProposal& proposal : m_proposals) {
        for (const FileProposal& file : proposal.files) {
            if (m_selectedFiles.contains(file.id))
                bytes = addedWithoutOverflow(bytes, file.sizeBytes);
        }
    }
    return bytes;
}

QString OrganizerVM::selectedSizeFormatted() const
{
    return L10n::Formatters::bytes(selectedBytes());
}

void OrganizerVM::execute()
{
    const qint64 bytes = selectedBytes();
    const OrganizerService::ExecutionResult result = OrganizerService::execute(m_proposals, m_selectedFiles);
    if (result.moved > 0)
        logRun(result.moved, bytes);
    dropSelectedFiles();
    selectAll();
    if (m_selectedProposalID && !proposalWithID(*m_selectedProposalID))
        setSelectedProposalID(m_proposals.isEmpty() ? std::optional<QUuid>() : m_proposals.constFirst().id);
}

void OrganizerVM::logRun(qint64 moved, qint64 bytes) const
{
    const QString count = QString::number(moved);
    QString detail = moved == 1 ? tr("%1 file sorted into subfolders").arg(count)
                                : tr("%1 files sorted into subfolders").arg(count);
    if (m_targetFolder)
        detail = tr("%1 in %2").arg(detail, m_targetFolder->lastPathComponent());
    m_activityStore.append({
        .id = QUuid::createUuid(),
        .timestamp = m_clock(),
        .kind = ActivityEntry::Kind::organise,
        .title = tr("Files organised"),
        .detail = detail,
        .bytesAffected = bytes,
        .itemCount = moved,
    });
}

void OrganizerVM::dropSelectedFiles()
{
    QList<OrganizeProposal> rebuilt;
    for (const OrganizeProposal& proposal : std::as_const(m_proposals)) {
        OrganizeProposal rest{.category = proposal.category, .files = {}};
        std::ranges::copy_if(proposal.files, std::back_inserter(rest.files),
                             [this](const FileProposal& file) { return !m_selectedFiles.contains(file.id); });
        if (!rest.files.isEmpty())
            rebuilt.append(rest);
    }
    setProposals(rebuilt);
}

void OrganizerVM::announceSelection()
{
    Q_EMIT selectedCategoriesChanged();
    Q_EMIT selectedFilesChanged();
    Q_EMIT changed();
}

void OrganizerVM::setProposals(const QList<OrganizeProposal>& proposals)
{
    m_proposals = proposals;
    Q_EMIT proposalsChanged();
    Q_EMIT changed();
}

void OrganizerVM::setSelectedProposalID(std::optional<QUuid> id)
{
    m_selectedProposalID = id;
    Q_EMIT selectedProposalIDChanged();
    Q_EMIT changed();
}

void OrganizerVM::setIsScanning(bool isScanning)
{
    m_isScanning = isScanning;
    Q_EMIT isScanningChanged();
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
    Q_EMIT targetFolderChanged();
    Q_EMIT changed();
}

void OrganizerVM::setActiveTarget(std::optional<QuickTarget> target)
{
    m_activeTarget = target;
    Q_EMIT activeTargetChanged();
    Q_EMIT changed();
}

} // namespace keelbright
