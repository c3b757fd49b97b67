#pragma once

#include "Keelbright/screens/shared/GroupItemsPanel.h"
#include "KeelbrightCore/health/JunkCategory.h"

namespace keelbright {

class JunkCleanerVM;
class JunkItemModel;
class Workspace;

/// The right side of the junk cleaner: the items of the kind of junk that is chosen at the left.
class JunkItemPanel : public GroupItemsPanel
{
    Q_OBJECT

public:
    /// Model and workspace outlive the panel.
    JunkItemPanel(JunkCleanerVM& vm, Workspace& workspace, QWidget* parent = nullptr);

    void redraw();

private:
    void redrawHeader(const JunkCategory& category);

    JunkCleanerVM& m_vm;
    JunkItemModel* m_model;
};

} // namespace keelbright
