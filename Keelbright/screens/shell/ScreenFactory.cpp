#include "Keelbright/screens/shell/ScreenFactory.h"

#include "Keelbright/screens/ActivityLogView.h"
#include "Keelbright/screens/AppManagerView.h"
#include "Keelbright/screens/BackupProgressView.h"
#include "Keelbright/screens/BackupReportView.h"
#include "Keelbright/screens/DashboardView.h"
#include "Keelbright/screens/JunkCleanerView.h"
#include "Keelbright/screens/NewMacRecoveryView.h"
#include "Keelbright/screens/OrganizerView.h"
#include "Keelbright/screens/PreflightSummaryView.h"
#include "Keelbright/screens/ProtectedItemsView.h"
#include "Keelbright/screens/RestoreBrowserView.h"
#include "Keelbright/screens/ScanResultsView.h"
#include "Keelbright/screens/SettingsView.h"
#include "Keelbright/screens/StorageBrowserView.h"
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
        return new DashboardView(context.state, parent);
    case Screen::protectedItems:
        return new ProtectedItemsView(context.state, context.alerts, parent);
    case Screen::preflight:
        return new PreflightSummaryView(context.state, parent);
    case Screen::backupProgress:
        return new BackupProgressView(context.state, context.workspace, parent);
    case Screen::backupReport:
        return new BackupReportView(context.state, context.workspace, parent);
    case Screen::appManager:
        return new AppManagerView(context, parent);
    case Screen::scanResults:
        return new ScanResultsView(context, parent);
    case Screen::activityLog:
        return new ActivityLogView(context, parent);
    case Screen::storageBrowser:
        return new StorageBrowserView(context, parent);
    case Screen::junkCleaner:
        return new JunkCleanerView(context, parent);
    case Screen::organizer:
        return new OrganizerView(context, parent);
    case Screen::restoreBrowser:
        return new RestoreBrowserView(context.state, context.workspace, parent);
    case Screen::recovery:
        return new NewMacRecoveryView(context.state, context.files, parent);
    }
    return makeWelcomeView(parent);
}

QWidget* makeWelcomeView(QWidget* parent)
{
    return new EmptyStateView(
        QCoreApplication::translate("WelcomeView", "Welcome to Keel Bright"),
        QCoreApplication::translate("WelcomeView", "Select an item from the sidebar to get started."),
        u"shippingbox.fill"_s, parent);
}

} // namespace keelbright
