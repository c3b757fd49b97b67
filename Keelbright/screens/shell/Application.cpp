#include "Keelbright/screens/shell/Application.h"

#include "Keelbright/screens/shell/DesktopWorkspace.h"
#include "Keelbright/screens/shell/DialogFileChooser.h"
#include "Keelbright/screens/shell/DialogFolderChooser.h"
#include "Keelbright/screens/shell/MainWindow.h"
#include "Keelbright/state/KeelbrightApp.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/theme/DesktopSettings.h"
#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "KeelbrightCore/platform/system/ProgramVersion.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

void followDesktop(const DesktopSettings& desktop)
{
    Theme& theme = Theme::instance();
    const auto applyScheme = [&desktop, &theme] { theme.setScheme(desktop.colorScheme()); };
    const auto applyMotion = [&desktop, &theme] { theme.setMotionReduced(desktop.isMotionReduced()); };
    QObject::connect(&desktop, &DesktopSettings::colorSchemeChanged, &theme, applyScheme);
    QObject::connect(&desktop, &DesktopSettings::isMotionReducedChanged, &theme, applyMotion);
    applyScheme();
    applyMotion();
}

int runWindow(QApplication& application, AppLookup lookup)
{
    const DesktopSettings desktop;
    followDesktop(desktop);
    Theme::instance().install();

    DialogFolderChooser chooser;
    DialogFileChooser files;
    DesktopWorkspace workspace;
    DialogAlertPresenter alerts;
    KeelbrightApp app(chooser, std::move(lookup));
    MainWindow window({app.state(), alerts, workspace, files});
    QObject::connect(&window, &MainWindow::closed, &application, &QCoreApplication::quit);
    window.show();
    const int code = QApplication::exec();
    window.hide();
    if (!app.shutDown()) {
        std::fflush(stdout);
        std::_Exit(code);
    }
    return code;
}

} // namespace

int runApplication(int argc, char** argv, AppLookup lookup)
{
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"Keelbright"_s);
    QCoreApplication::setApplicationVersion(programVersion());
    QGuiApplication::setApplicationDisplayName(u"Keel Bright"_s);
    QGuiApplication::setDesktopFileName(u"keelbright"_s);
    QGuiApplication::setWindowIcon(
        Symbol::icon(u"shippingbox.fill"_s, Theme::instance().color(Role::accent)));
    return runWindow(application, std::move(lookup));
}

} // namespace keelbright
