#pragma once

#include "Keelbright/screens/apps/LeftoverListModel.h"
#include "Keelbright/screens/shared/PageSection.h"

namespace keelbright {

class AppDetailVM;
class Card;
class Label;
class RowListView;
class Workspace;

/// The files that an application left around.
class LeftoversSection : public PageSection
{
    Q_OBJECT

public:
    /// Model and workspace outlive the section.
    LeftoversSection(AppDetailVM& model, Workspace& workspace, QWidget* parent = nullptr);

private:
    [[nodiscard]] QWidget* makeList();
    void redraw();

    AppDetailVM& m_model;
    Workspace& m_workspace;
    LeftoverListModel m_rows;
    Card* m_card;
    QWidget* m_scanning = nullptr;
    Label* m_none = nullptr;
    QWidget* m_found = nullptr;
    RowListView* m_list = nullptr;
    Label* m_total = nullptr;
};

} // namespace keelbright
