#pragma once

#include "Keelbright/widgets/Panels.h"

#include <QList>

class QStackedLayout;

namespace keelbright {

class Button;
class OrganizerVM;
class ProposalModel;
class QuickTargetRow;
class RowListView;
class SelectionSummary;

/// The left side of the organizer: the folders to scan, and the categories of the plan with the buttons
/// to tick all of it and to carry it out.
class OrganizerPlanPanel : public Ground
{
    Q_OBJECT

public:
    /// `vm` outlives the panel.
    explicit OrganizerPlanPanel(OrganizerVM& vm, QWidget* parent = nullptr);

    void redraw();

private:
    void addTargets();
    void addStates();
    [[nodiscard]] QWidget* makePlan();
    [[nodiscard]] QWidget* makeBottomBar();
    void redrawTargets();
    void redrawPlan();
    void redrawBottomBar();
    void showState();

    OrganizerVM& m_vm;
    QList<QuickTargetRow*> m_targets;
    ProposalModel* m_model;
    RowListView* m_list = nullptr;
    SelectionSummary* m_selection = nullptr;
    Button* m_toggleAll = nullptr;
    Button* m_organise = nullptr;
    QStackedLayout* m_states;
    QWidget* m_busy = nullptr;
    QWidget* m_plan = nullptr;
    QWidget* m_organised = nullptr;
    QWidget* m_idle = nullptr;
};

} // namespace keelbright
