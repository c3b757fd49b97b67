#include "Keelbright/screens/RestoreBrowserView.h"

#include "Keelbright/screens/recovery/SnapshotRows.h"
#include "Keelbright/screens/shared/Announcement.h"
#include "Keelbright/screens/shared/ListCard.h"
#include "Keelbright/screens/shared/PageSection.h"
#include "Keelbright/screens/shared/RescanShortcuts.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/FolderChooser.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "Keelbright/widgets/rows/RowWidget.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// The folders whose names are dates, newest first; none where there is no such listing.
QList<BackupSnapshot> datedFolders(const FileURL& folder)
{
    const auto entries = FileManager::defaultManager().contentsOfDirectory(
        folder, DirectoryEnumerator::Option::skipsHiddenFiles);
    if (!entries)
        return {};
    QList<BackupSnapshot> snapshots;
    for (const DirectoryEntry& entry : *entries) {
        if (entry.type != EntryType::directory)
            continue;
        const auto date = DateFormatter::fromPattern(entry.url.lastPathComponent(), u"yyyy-MM-dd-HHmm"_s,
                                                     DateFormatter::Conventions::user);
        if (date)
            snapshots.append({QUuid::createUuid(), *date, entry.url});
    }
    std::ranges::stable_sort(snapshots, std::ranges::greater(), &BackupSnapshot::date);
    return snapshots;
}

} // namespace

RestoreBrowserView::RestoreBrowserView(AppState& state, Workspace& workspace, QWidget* parent)
    : Page(parent)
    , m_state(state)
    , m_workspace(workspace)
    , m_rows(new SnapshotRows(this))
{
    addHeader();
    addLatest();
    addSnapshots();
    addRescanShortcuts(*this, [this] {
        if (const std::optional<FileURL> root = m_chosenBackupRoot)
            openFolder(*root);
    });
    redraw();
}

const QList<BackupSnapshot>& RestoreBrowserView::snapshots() const
{
    return m_rows->snapshots();
}

void RestoreBrowserView::addHeader()
{
    auto* header =
        new PageHeader(tr("Restore Browser"),
                       tr("Browse snapshots from a Keel Bright backup to find your personal files."), this);
    auto* open = new Button(Button::Kind::primary, tr("Open Backup Folder"), u"folder.badge.gear"_s, header);
    connect(open, &QPushButton::clicked, this, &RestoreBrowserView::pickBackupFolder);
    header->addAction(open);
    content()->addWidget(header);
    m_nothingOpened = new EmptyStateView(
        tr("No Backup Folder Opened"),
        tr("Click \"Open Backup Folder\" and navigate to your Keelbright/DeviceName folder on your "
           "backup drive."),
        u"externaldrive.badge.timemachine"_s, this);
    content()->addWidget(m_nothingOpened, 1);
}

void RestoreBrowserView::addLatest()
{
    auto* section = new PageSection(new SectionHeader(tr("Latest Backup")), this);
    auto* rows = new RowList(section);
    auto* row = new RowWidget(new Tile(u"clock.badge.checkmark"_s, Role::green), tr("Latest/"), {},
                              RowWidget::Detail::words, rows);
    auto* open = new Button(Button::Kind::bordered, tr("Open in Finder"), {}, row);
    open->setCompact(true);
    connect(open, &QPushButton::clicked, this, [this] { m_workspace.open(*m_latestURL); });
    row->addTrailing(open);
    rows->addRow(row);
    section->content()->addWidget(rows);
    m_latest = section;
    content()->addWidget(section);
}

void RestoreBrowserView::addSnapshots()
{
    m_heading = new SectionHeader({});
    auto* section = new PageSection(m_heading, this);
    m_list = new RowListView(RowListView::Look::table, tr("Snapshots"), section);
    m_list->setRowModel(m_rows);
    connect(m_list, &RowListView::actionPressed, this,
            [this](int row) { m_workspace.open(snapshots().at(row).folderURL); });
    section->content()->addWidget(makeListCard(m_list, section), 1);
    m_found = section;
    content()->addWidget(section, 1);
    m_nothingFound = new EmptyStateView(tr("No Snapshots Found"),
                                        tr("This folder doesn't appear to contain Keel Bright snapshots."),
                                        u"clock.arrow.circlepath"_s, this);
    content()->addWidget(m_nothingFound, 1);
    content()->addStretch();
}

void RestoreBrowserView::pickBackupFolder()
{
    const FolderChooserRequest request{
        .message = tr("Navigate to your Keelbright/DeviceName folder on your backup drive."),
        .prompt = tr("Open"),
    };
    // The screen may have been left while the chooser was open.
    const auto chosen = [self = QPointer(this)](const QList<FileURL>& urls) {
        if (self && !urls.isEmpty())
            self->openFolder(urls.first());
    };
    m_state.services().folderChooser.chooseFolders(request, chosen);
}

void RestoreBrowserView::openFolder(const FileURL& root)
{
    m_chosenBackupRoot = root;
    loadSnapshots(root);
    announce(*this, snapshots().isEmpty() ? tr("No Snapshots Found")
                                          : tr("Snapshots (%1)").arg(QString::number(snapshots().size())));
}

void RestoreBrowserView::loadSnapshots(const FileURL& root)
{
    const FileURL latest = root.appending(u"Latest"_s);
    m_latestURL =
        FileManager::defaultManager().fileExists(latest).exists ? std::optional(latest) : std::nullopt;
    m_rows->setSnapshots(datedFolders(root.appending(u"Snapshots"_s)));
    redraw();
}

void RestoreBrowserView::redraw()
{
    const bool isOpened = m_chosenBackupRoot.has_value();
    const int count = m_rows->rowCount();
    m_nothingOpened->setVisible(!isOpened);
    m_latest->setVisible(isOpened && m_latestURL);
    m_found->setVisible(isOpened && count > 0);
    m_nothingFound->setVisible(isOpened && count == 0);
    m_heading->setTitle(tr("Snapshots (%1)").arg(QString::number(count)));
    fitListCard(m_list);
}

} // namespace keelbright
