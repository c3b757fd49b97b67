#include "Keelbright/screens/OrganizerView.h"

#include "Keelbright/screens/organizer/OrganizerPlanPanel.h"
#include "Keelbright/screens/organizer/ProposalPanel.h"
#include "Keelbright/screens/shared/FolderDrop.h"
#include "Keelbright/screens/shared/RescanShortcuts.h"
#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/state/NotificationCenter.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/DisplayText.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int planWidth = 290;

} // namespace

OrganizerView::OrganizerView(const ScreenContext& context, QWidget* parent)
    : QWidget(parent)
    , m_alerts(context.alerts)
    , m_vm(context.state.services().activityStore, context.state.services().folderChooser,
           context.state.services().clock, this)
    , m_plan(new OrganizerPlanPanel(m_vm))
    , m_files(new ProposalPanel(m_vm, context.workspace))
    , m_panels(makeSplit(m_plan, m_files, planWidth, this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_panels);
    addRescanShortcuts(*this, [this] { rescan(); });
    acceptFolders(*this, [this](const QList<FileURL>& folders) { scan(folders.first()); });
    watchModel();
    followUndo(context.state.undo());
    redraw();
}

OrganizerView::~OrganizerView()
{
    // Their lists read the model, which is destroyed before the other children.
    delete m_panels;
}

void OrganizerView::watchModel()
{
    connect(&m_vm, &OrganizerVM::changed, &m_frames, &FrameThrottle::request);
    connect(&m_frames, &FrameThrottle::frame, this, &OrganizerView::redraw);
    connect(&m_vm, &OrganizerVM::showConfirmChanged, this, [this] {
        if (m_vm.showConfirm())
            ask();
    });
    connect(&NotificationCenter::defaultCenter(), &NotificationCenter::posted, this, &OrganizerView::receive);
}

void OrganizerView::followUndo(UndoStore& undo)
{
    connect(&m_vm, &OrganizerVM::organised, &undo, &UndoStore::remember);
    connect(&undo, &UndoStore::ended, this, &OrganizerView::rescan);
}

void OrganizerView::receive(const QString& name, const QVariant& object)
{
    if (name != organizeFolderNotification || object.metaType() != QMetaType::fromType<FileURL>())
        return;
    scan(object.value<FileURL>());
}

void OrganizerView::scan(const FileURL& folder)
{
    m_vm.setActiveTarget(std::nullopt);
    m_vm.scan(folder);
}

void OrganizerView::redraw()
{
    m_focus.redraw(m_vm.isScanning(), [this] {
        m_plan->redraw();
        m_files->redraw();
    });
}

void OrganizerView::rescan()
{
    const std::optional<OrganizerVM::QuickTarget> target = m_vm.activeTarget();
    const std::optional<FileURL> folder = m_vm.targetFolder();
    if (m_vm.isScanning() || !folder)
        return;
    if (target)
        m_vm.scan(*target);
    else
        m_vm.scan(*folder);
}

void OrganizerView::ask()
{
    const qsizetype selected = m_vm.selectedFiles().size();
    const auto& folder = m_vm.targetFolder();
    const AlertRequest request{
        .title = selected == 1 ? tr("Move 1 file into subfolders?")
                               : tr("Move %n files into subfolders?", nullptr, pluralNumber(selected)),
        .message = tr("Files will be moved into named subfolders inside \"%1\". This can be undone in Finder "
                      "(⌘Z).")
                       .arg(folder ? displayText(folder->lastPathComponent()) : tr("the folder")),
        .action = tr("Organise"),
        .cancel = tr("Cancel"),
        .isDestructive = true,
        .dismissed = [this] { m_vm.setShowConfirm(false); },
    };
    m_alerts.present(this, request, [this] {
        m_vm.setShowConfirm(false);
        m_vm.execute();
    });
}

} // namespace keelbright
