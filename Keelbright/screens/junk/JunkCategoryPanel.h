#pragma once

#include "Keelbright/widgets/Panels.h"

class QStackedLayout;

namespace keelbright {

class JunkCategoryModel;
class JunkCleanerVM;
class RowListView;

/// The left side of the junk cleaner: a running scan, the kinds of junk that it found, or that there is
/// none.
class JunkCategoryPanel : public Ground
{
    Q_OBJECT

public:
    /// `vm` outlives the panel.
    explicit JunkCategoryPanel(JunkCleanerVM& vm, QWidget* parent = nullptr);

    void redraw();

private:
    void addList();
    void showList();

    JunkCleanerVM& m_vm;
    JunkCategoryModel* m_model;
    QStackedLayout* m_states;
    QWidget* m_busy = nullptr;
    QWidget* m_clean = nullptr;
    RowListView* m_list = nullptr;
};

} // namespace keelbright
