#include "Keelbright/screens/shell/DetailView.h"

#include "Keelbright/screens/shared/ScreenTitle.h"
#include "Keelbright/screens/shell/ScreenFactory.h"
#include "Keelbright/state/AppState.h"

#include <QAccessible>
#include <QVBoxLayout>

namespace keelbright {

DetailView::DetailView(const ScreenContext& context, QWidget* parent)
    : QWidget(parent)
    , m_context(context)
    , m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    connect(&context.state, &AppState::selectedScreenChanged, this, &DetailView::showSelectedScreen);
    showSelectedScreen();
}

void DetailView::showSelectedScreen()
{
    const std::optional<Screen> selected = m_context.state.selectedScreen();
    if (m_view && selected == m_screen)
        return;
    m_screen = selected;
    if (m_view) {
        // The click that led here may still be running in the view.
        m_layout->removeWidget(m_view);
        m_view->hide();
        m_view->deleteLater();
    }
    m_view = selected ? makeScreen(*selected, m_context, this) : makeWelcomeView(this);
    m_layout->addWidget(m_view);
    m_view->show();
    setAccessibleName(selected ? screenTitle(*selected) : tr("Welcome"));
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
    Q_EMIT viewChanged();
}

} // namespace keelbright
