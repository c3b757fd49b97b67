#pragma once

#include "Keelbright/widgets/Panels.h"
#include "KeelbrightCore/storage/OrganizeProposal.h"

#include <optional>

class QStackedLayout;

namespace keelbright {

class Button;
class DestinationTag;
class FileProposalModel;
class OrganizerVM;
class RowListView;
class Workspace;

/// The right side of the organizer: the files of the chosen category and where they will go.
class ProposalPanel : public Ground
{
    Q_OBJECT

public:
    /// What is handed in outlives the panel.
    ProposalPanel(OrganizerVM& vm, Workspace& workspace, QWidget* parent = nullptr);

    void redraw();

private:
    [[nodiscard]] QWidget* makeDetail();
    void connectList(Workspace& workspace);
    [[nodiscard]] const OrganizeProposal* shownProposal() const;
    void redrawHeader(const OrganizeProposal& proposal);

    OrganizerVM& m_vm;
    FileProposalModel* m_model;
    PanelHeader* m_header;
    DestinationTag* m_destination;
    Button* m_toggle;
    RowListView* m_list; ///< below them, also for the Tab key
    QStackedLayout* m_states;
    std::optional<QUuid> m_shownID;
};

} // namespace keelbright
