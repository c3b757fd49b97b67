#include "Keelbright/screens/RestoreBrowserView.h"

#include "Keelbright/screens/recovery/SnapshotRows.h"
#include "Keelbright/screens/shared/ListCard.h"
#include "Keelbright/screens/shared/PageSection.h"
#include "Keelbright/screens/shared/RescanShortcuts.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "Keelbright/widgets/rows/RowWidget.h"

#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

RestoreBrowserView::RestoreBrowserView(AppState& state, Workspace& workspace, QWidget* parent)
    : Page(parent)
    , m_state(state)
    , m_workspace(workspace)
    , m_vm(state.services().folderChooser, this)
    , m_rows(new SnapshotRows(this))
{
    addHeader();
    addLatest();
    addSnapshots();
    addRescanShortcuts(*this, [this] { m_vm.reload(); });
    connect(&m_vm, &RestoreBrowserVM::changed, this, &RestoreBrowserView::showFolder);
    redraw();
}

void RestoreBrowserView::addHeader()
{
    auto* header =
        new PageHeader(tr("Restore Browser"),
                       tr("Browse snapshots from a Keel Bright backup to find your personal files."), this);
    auto* open = new Button(Button::Kind::primary, tr("Open Backup Folder"), u"folder.badge.gear"_s, header);
    connect(open, &QPushButton::clicked, this, [this] { m_vm.pickBackupFolder(m_state.backupsFolder()); });
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
                              RowWidget::Detail::text, rows);
    auto* open = new Button(Button::Kind::bordered, tr("Open in Finder"), {}, row);
    open->setCompact(true);
    connect(open, &QPushButton::clicked, this, [this] { m_workspace.open(*m_vm.latestURL()); });
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
    connect(m_list, &RowListView::actionPressed, this, [this](int row, RowActionId action) {
        if (action == RowActionId::open)
            m_workspace.open(m_vm.snapshots().at(row).folderURL);
    });
    section->content()->addWidget(makeListCard(m_list, section), 1);
    m_found = section;
    content()->addWidget(section, 1);
    m_nothingFound = new EmptyStateView(tr("No Snapshots Found"),
                                        tr("This folder doesn't appear to contain Keel Bright snapshots."),
                                        u"clock.arrow.circlepath"_s, this);
    content()->addWidget(m_nothingFound, 1);
    content()->addStretch();
}

void RestoreBrowserView::showFolder()
{
    const QList<BackupSnapshot>& snapshots = m_vm.snapshots();
    m_rows->setSnapshots(snapshots);
    redraw();
    announce(*this, snapshots.isEmpty() ? tr("No Snapshots Found")
                                        : tr("Snapshots (%1)").arg(QString::number(snapshots.size())));
}

void RestoreBrowserView::redraw()
{
    const bool isOpened = m_vm.chosenBackupRoot().has_value();
    const int count = m_rows->rowCount();
    m_nothingOpened->setVisible(!isOpened);
    m_latest->setVisible(isOpened && m_vm.latestURL());
    m_found->setVisible(isOpened && count > 0);
    m_nothingFound->setVisible(isOpened && count == 0);
    m_heading->setTitle(tr("Snapshots (%1)").arg(QString::number(count)));
    fitListCard(m_list);
}

} // namespace keelbright
