#pragma once

#include "Keelbright/screens/shared/GroupItemsPanel.h"
#include "KeelbrightCore/storage/OrganizeProposal.h"

namespace keelbright {

class DestinationTag;
class FileProposalModel;
class OrganizerVM;
class Workspace;

/// The right side of the organizer: the files of the chosen category and where they will go.
class ProposalPanel : public GroupItemsPanel
{
    Q_OBJECT

public:
    /// Model and workspace outlive the panel.
    ProposalPanel(OrganizerVM& vm, Workspace& workspace, QWidget* parent = nullptr);

    void redraw();

private:
    void redrawHeader(const OrganizeProposal& proposal);

    OrganizerVM& m_vm;
    FileProposalModel* m_model;
    DestinationTag* m_destination;
};

} // namespace keelbright
