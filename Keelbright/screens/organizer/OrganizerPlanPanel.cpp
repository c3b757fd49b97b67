#include "Keelbright/screens/organizer/OrganizerPlanPanel.h"

#include "Keelbright/screens/organizer/ProposalModel.h"
#include "Keelbright/screens/organizer/QuickTargetRow.h"
#include "Keelbright/screens/shared/SelectionSummary.h"
#include "Keelbright/widgets/Announcement.h"
#include "Keelbright/widgets/BottomBar.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/Label.h"
#include "Keelbright/widgets/PanelNote.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int barHeight = 92;

QString symbolOf(OrganizerVM::QuickTarget target)
{
    switch (target) {
    case OrganizerVM::QuickTarget::desktop:
        return u"menubar.rectangle"_s;
    case OrganizerVM::QuickTarget::downloads:
        return u"arrow.down.circle.fill"_s;
    }
    Q_UNREACHABLE();
}

QString labelOf(OrganizerVM::QuickTarget target)
{
    return QCoreApplication::translate("OrganizerVM", OrganizerVM::rawValue(target).toUtf8().constData());
}

} // namespace

OrganizerPlanPanel::OrganizerPlanPanel(OrganizerVM& vm, QWidget* parent)
    : Ground(Role::window, parent)
    , m_vm(vm)
    , m_model(new ProposalModel(vm, this))
    , m_states(new QStackedLayout)
{
    content()->addWidget(
        new PanelHeader(tr("Smart Organizer"), {}, u"folder.badge.gearshape"_s, Role::accent, this));
    addTargets();
    content()->addSpacing(8);
    content()->addWidget(new Separator(Qt::Horizontal, this));
    addStates();
}

void OrganizerPlanPanel::addTargets()
{
    auto* title = new Label(tr("QUICK TARGETS"), FontRole::groupTitle, Role::secondaryText, this);
    title->setContentsMargins(Metrics::panelPadding, 0, Metrics::panelPadding, 4);
    content()->addWidget(title);
    for (const OrganizerVM::QuickTarget target : OrganizerVM::allQuickTargets()) {
        auto* row = new QuickTargetRow(symbolOf(target), labelOf(target), this);
        connect(row, &QAbstractButton::clicked, this, [this, target] { m_vm.scan(target); });
        content()->addWidget(row);
        m_targets.append(row);
    }
    auto* choose = new QuickTargetRow(u"folder.badge.plus"_s, tr("Choose Folder…"), this);
    connect(choose, &QAbstractButton::clicked, &m_vm, &OrganizerVM::pickCustomFolder);
    content()->addWidget(choose);
}

void OrganizerPlanPanel::addStates()
{
    content()->addLayout(m_states, 1);
    m_idle = new PanelNote(u"arrow.up.left"_s, Role::emptyMark, tr("Pick a folder above"), {}, this);
    m_busy = new BusyState(tr("Analysing…"), {}, 32, this);
    m_plan = makePlan();
    m_organised = new PanelNote(u"checkmark.circle.fill"_s, Role::green, tr("Already organised!"),
                                tr("No loose files found."), this);
    for (QWidget* state : {m_idle, m_busy, m_plan, m_organised})
        m_states->addWidget(state);
}

QWidget* OrganizerPlanPanel::makePlan()
{
    m_list = new RowListView(RowListView::Look::panel, tr("File categories"), this);
    m_list->setRowModel(m_model);
    connect(m_list, &RowListView::currentRowChanged, this,
            [this](int row) { m_vm.setSelectedProposalID(m_model->itemAt(row).id); });
    connect(m_list, &RowListView::currentRowCleared, this,
            [this] { m_vm.setSelectedProposalID(std::nullopt); });
    connect(m_list, &RowListView::markPressed, this,
            [this](int row) { m_vm.toggleCategory(m_model->itemAt(row).id); });
    auto* plan = new QWidget(this);
    auto* column = new QVBoxLayout(plan);
    column->setContentsMargins(0, 8, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_list, 1);
    column->addWidget(makeBottomBar());
    return plan;
}

QWidget* OrganizerPlanPanel::makeBottomBar()
{
    auto* bar = new BottomBar(this);
    // Texts and buttons do not fit into a side panel side by side.
    bar->setFixedHeight(barHeight);
    m_selection = new SelectionSummary(bar);
    m_toggleAll = new Button(Button::Kind::bordered, tr("Select All"), {}, bar);
    m_organise = new Button(Button::Kind::primary, tr("Organise Now"), u"folder.badge.gearshape"_s, bar);
    m_organise->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* upper = new QHBoxLayout;
    upper->addWidget(m_selection, 1);
    upper->addWidget(m_toggleAll);
    auto* column = new QVBoxLayout;
    column->setSpacing(6);
    column->addStretch();
    column->addLayout(upper);
    column->addWidget(m_organise);
    column->addStretch();
    bar->content()->addLayout(column);
    connect(m_toggleAll, &QPushButton::clicked, &m_vm, &OrganizerVM::toggleSelectAll);
    connect(m_organise, &QPushButton::clicked, this, [this] { m_vm.setShowConfirm(true); });
    return bar;
}

void OrganizerPlanPanel::redraw()
{
    redrawTargets();
    redrawPlan();
    redrawBottomBar();
    showState();
}

void OrganizerPlanPanel::redrawTargets()
{
    const auto& targets = OrganizerVM::allQuickTargets();
    for (qsizetype i = 0; i < targets.size(); ++i)
        m_targets.at(i)->setActive(m_vm.activeTarget() == targets.at(i));
}

void OrganizerPlanPanel::redrawPlan()
{
    m_model->setGroups(m_vm.proposals());
    m_list->setCurrentRow(m_model->rowOf(m_vm.selectedProposalID()));
}

void OrganizerPlanPanel::redrawBottomBar()
{
    const qsizetype selected = m_vm.selectedFiles().size();
    if (selected == 0)
        m_selection->setSelection(tr("Nothing selected"), {});
    else
        m_selection->setSelection(selected == 1 ? tr("1 file selected")
                                                : tr("%n files selected", nullptr, pluralNumber(selected)),
                                  m_vm.selectedSizeFormatted());
    const bool isAllSelected = m_vm.selectedCategories().size() == m_vm.proposals().size();
    m_toggleAll->setCaption(isAllSelected ? tr("Deselect All") : tr("Select All"));
    m_organise->setEnabled(selected > 0);
}

void OrganizerPlanPanel::showState()
{
    QWidget* const before = m_states->currentWidget();
    if (m_vm.isScanning())
        m_states->setCurrentWidget(m_busy);
    else if (!m_vm.proposals().isEmpty())
        m_states->setCurrentWidget(m_plan);
    else
        m_states->setCurrentWidget(m_vm.targetFolder() ? m_organised : m_idle);
    if (m_states->currentWidget() == m_plan && before != m_plan && isVisible())
        announce(*m_list, m_list->accessibleName());
}

} // namespace keelbright
