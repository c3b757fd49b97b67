#include "Keelbright/screens/shell/SettingsWindow.h"

#include "Keelbright/screens/SettingsView.h"
#include "Keelbright/screens/shared/ScreenTitle.h"

#include <QVBoxLayout>

namespace keelbright {

SettingsWindow::SettingsWindow(AppState& state, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(screenTitle(Screen::settings));
    setFixedSize(450, 300);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new SettingsView(state, SettingsView::Place::window, this));
}

} // namespace keelbright
