#include "Keelbright/screens/shell/MainView.h"

#include "Keelbright/screens/shell/DetailView.h"
#include "Keelbright/screens/shell/SidebarView.h"

#include <QHBoxLayout>
#include <QListView>
#include <QSplitter>

namespace keelbright {

MainView::MainView(const ScreenContext& context, QWidget* parent)
    : QWidget(parent)
    , m_sidebar(new SidebarView(context.state))
    , m_detail(new DetailView(context))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setHandleWidth(1);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_sidebar);
    splitter->addWidget(m_detail);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({SidebarView::idealWidth, 10000});
    layout->addWidget(splitter);
}

void MainView::focusSidebar()
{
    m_sidebar->list()->setFocus(Qt::ActiveWindowFocusReason);
}

} // namespace keelbright
