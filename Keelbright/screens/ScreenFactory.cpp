#include "Keelbright/screens/ScreenFactory.h"

#include "Keelbright/screens/SettingsView.h"
#include "Keelbright/widgets/EmptyStateView.h"

#include <QCoreApplication>

namespace keelbright {

using namespace Qt::StringLiterals;

QWidget* makeScreen(Screen screen, const ScreenContext& context, QWidget* parent)
{
    switch (screen) {
    case Screen::settings:
        return new SettingsView(context.state, SettingsView::Place::screen, parent);
    case Screen::dashboard:
    case Screen::protectedItems:
    case Screen::preflight:
    case Screen::backupProgress:
    case Screen::backupReport:
    case Screen::appManager:
    case Screen::junkCleaner:
    case Screen::storageBrowser:
    case Screen::organizer:
    case Screen::scanResults:
    case Screen::activityLog:
    case Screen::restoreBrowser:
    case Screen::recovery:
        break;
    }
    return makeWelcomeView(parent);
}

QWidget* makeWelcomeView(QWidget* parent)
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("WelcomeView", text); };
    return new EmptyStateView(tr("Welcome to Keel Bright"),
                              tr("Select an item from the sidebar to get started."), u"shippingbox.fill"_s,
                              parent);
}

QString screenTitle(Screen screen)
{
    return QCoreApplication::translate("Screen", rawValue(screen).toUtf8().constData());
}

} // namespace keelbright
