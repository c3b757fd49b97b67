#pragma once

#include "Keelbright/screens/shared/ScreenContext.h"

#include <QWidget>

namespace keelbright {

class DetailView;
class SidebarView;

/// The sidebar beside the detail area. The user may widen the sidebar or hide it.
class MainView : public QWidget
{
    Q_OBJECT

public:
    /// The members of the context must outlive the view.
    explicit MainView(const ScreenContext& context, QWidget* parent = nullptr);

    [[nodiscard]] SidebarView* sidebar() const { return m_sidebar; }

    [[nodiscard]] DetailView* detail() const { return m_detail; }

    /// Gives the sidebar's list the focus.
    void focusSidebar();

private:
    SidebarView* m_sidebar;
    DetailView* m_detail;
};

} // namespace keelbright
