#include "Keelbright/screens/shell/Application.h"

#include "Keelbright/screens/shell/CommandLine.h"
#include "Keelbright/screens/shell/DesktopPresence.h"
#include "Keelbright/screens/shell/DesktopWorkspace.h"
#include "Keelbright/screens/shell/DialogFileChooser.h"
#include "Keelbright/screens/shell/DialogFolderChooser.h"
#include "Keelbright/screens/shell/DisplayConnection.h"
#include "Keelbright/screens/shell/MainWindow.h"
#include "Keelbright/screens/shell/ProgramApplication.h"
#include "Keelbright/screens/shell/ProgramIcon.h"
#include "Keelbright/screens/shell/SingleInstance.h"
#include "Keelbright/screens/shell/SystemServices.h"
#include "Keelbright/screens/shell/Translations.h"
#include "Keelbright/screens/shell/WindowPlaceFile.h"
#include "Keelbright/state/KeelbrightApp.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/theme/DesktopSettings.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/CloudFiles.h"
#include "KeelbrightCore/platform/system/Console.h"
#include "KeelbrightCore/platform/system/EndRequests.h"
#include "KeelbrightCore/platform/system/FileSizeLimit.h"
#include "KeelbrightCore/platform/system/OpenFileLimit.h"
#include "KeelbrightCore/platform/system/ProgramVersion.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QLocale>
#include <cstdio>
#include <cstdlib>
#include <tuple>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

void followDesktop(const DesktopSettings& desktop)
{
    Theme& theme = Theme::instance();
    const auto applyScheme = [&desktop, &theme] { theme.setScheme(desktop.colorScheme()); };
    const auto applyContrast = [&desktop, &theme] { theme.setContrastHigh(desktop.isContrastHigh()); };
    const auto applyMotion = [&desktop, &theme] { theme.setMotionReduced(desktop.isMotionReduced()); };
    QObject::connect(&desktop, &DesktopSettings::colorSchemeChanged, &theme, applyScheme);
    QObject::connect(&desktop, &DesktopSettings::isContrastHighChanged, &theme, applyContrast);
    QObject::connect(&desktop, &DesktopSettings::isMotionReducedChanged, &theme, applyMotion);
    applyScheme();
    applyContrast();
    applyMotion();
}

constexpr int codeForUnknownArguments = 2;

/// The folder of the settings, made where it is missing.
FileURL settingsFolder()
{
    FileManager& files = FileManager::defaultManager();
    FileURL folder = files.applicationSupportDirectory().appending(u"Keelbright"_s);
    std::ignore = files.createDirectory(folder); // the store of the settings reports it
    return folder;
}

/// Lets the system end the program: no question is asked then, and a backup stops before its next item.
void followEndOfSession(const QApplication& application, const EndRequests& endRequests, MainWindow& window)
{
    QObject::connect(&application, &QGuiApplication::commitDataRequest, &window,
                     &MainWindow::closeWithoutAsking, Qt::DirectConnection);
    QObject::connect(&endRequests, &EndRequests::received, &application, [] { QCoreApplication::exit(0); });
}

/// Puts the window where it stood at the last end of the program, and keeps where it stands when it closes or
/// the system ends the program.
void followPlace(MainWindow& window, const WindowPlaceFile& file)
{
    if (const std::optional<WindowPlace> place = file.load())
        place->applyTo(window);
    // While it can still be seen: a window that is gone stands nowhere.
    const auto keep = [&window, &file] { file.save(WindowPlace::of(window)); };
    QObject::connect(&window, &MainWindow::closed, &window, keep);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &window, [&window, keep] {
        if (window.isVisible())
            keep();
    });
}

int runWindow(QApplication& application, SingleInstance& instance, const std::optional<WindowAction>& action,
              AppLookup lookup)
{
    const EndRequests endRequests;
    const DesktopSettings desktop;
    followDesktop(desktop);
    Theme::instance().install();

    DialogFolderChooser chooser;
    DialogFileChooser files;
    DesktopWorkspace workspace;
    DialogAlertPresenter alerts;
    KeelbrightApp app(chooser, std::move(lookup));
    MainWindow window({app.state(), alerts, workspace, files});
    const WindowPlaceFile placeFile(settingsFolder());
    followPlace(window, placeFile);
    QObject::connect(&window, &MainWindow::closed, &application, &QCoreApplication::quit);
    std::optional<DesktopPresence> presence(std::in_place, app.state(), window, instance);
    followEndOfSession(application, endRequests, window);
    window.show();
    adoptFrame(window);
    if (action)
        presence->requests().activate(action);
    const int code = QApplication::exec();
    instance.stopListening();
    presence.reset(); // nothing is asked of a window that is gone
    window.hide();
    // Work that goes on, perhaps because it hangs, is not waited for; it uses what is destroyed below.
    if (!app.shutDown() || TaskPools::isAtWork()) {
        std::fflush(stdout);
        std::_Exit(code);
    }
    return code;
}

void introduceProgram()
{
    QCoreApplication::setApplicationName(u"Keelbright"_s);
    QCoreApplication::setApplicationVersion(programVersion());
    QGuiApplication::setApplicationDisplayName(u"Keel Bright"_s);
    QGuiApplication::setDesktopFileName(u"keelbright"_s);
    QGuiApplication::setWindowIcon(programIcon());
}

int openWindow(QApplication& application, const std::optional<WindowAction>& action, AppLookup lookup)
{
    introduceProgram();
    const Translations translations(QLocale::system().uiLanguages());
    SingleInstance instance(settingsFolder());
    switch (instance.start(action)) {
    case SingleInstance::Start::first:
        return runWindow(application, instance, action, std::move(lookup));
    case SingleInstance::Start::handedOver:
        return 0;
    case SingleInstance::Start::unanswered:
        printLine(u"Keel Bright is already running, but it does not answer."_s);
        return 0;
    }
    Q_UNREACHABLE();
}

} // namespace

int runApplication(int argc, char** argv, AppLookup lookup)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const std::expected<StartRequest, QString> request = readCommandLine(arguments);
    if (!request) {
        printErrorLine(request.error());
        return codeForUnknownArguments;
    }
    switch (request->kind) {
    case StartRequest::Kind::version:
        printLine(versionText());
        return 0;
    case StartRequest::Kind::help:
        printLine(helpText());
        return 0;
    case StartRequest::Kind::window:
        break;
    }
    reportFileSizeLimitAsError();
    OpenFileLimit::raise();
    CloudFiles::leaveInTheCloud();
    const std::unique_ptr<QApplication> application =
        connectToDisplay([&] { return std::make_unique<ProgramApplication>(argc, argv); });
    return openWindow(*application, request->action, std::move(lookup));
}

} // namespace keelbright
