#pragma once

#include "Keelbright/widgets/Panels.h"
#include "KeelbrightCore/health/JunkCategory.h"

#include <QString>
#include <optional>

class QStackedLayout;

namespace keelbright {

class Button;
class JunkCleanerVM;
class JunkItemModel;
class RowListView;
class Workspace;

/// The right side of the junk cleaner: the items of the kind of junk that is chosen at the left.
class JunkItemPanel : public Ground
{
    Q_OBJECT

public:
    /// What is handed in outlives the panel.
    JunkItemPanel(JunkCleanerVM& vm, Workspace& workspace, QWidget* parent = nullptr);

    void redraw();

private:
    [[nodiscard]] QWidget* makeDetail();
    void connectList(Workspace& workspace);
    [[nodiscard]] const JunkCategory* shownCategory() const;
    void redrawHeader(const JunkCategory& category);
    void redrawItems(const JunkCategory& category);

    JunkCleanerVM& m_vm;
    JunkItemModel* m_model;
    PanelHeader* m_header;
    Button* m_toggleAll;
    RowListView* m_list; ///< below them, also for the Tab key
    QStackedLayout* m_states;
    std::optional<QString> m_shownID;
};

} // namespace keelbright
