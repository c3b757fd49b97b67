#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The shortcuts and titles stay as they are; what they lead to has the names of the user's language.
void playProtectedItems(Stage& stage)
{
    stage.becomeLinux(MadeUpLinux::Language::german).populate();
    stage.goTo(Screen::protectedItems);
    stage.settle();
}

void playApps(Stage& stage)
{
    stage.becomeLinux().populate();
    stage.goTo(Screen::appManager);
    stage.press(u"Scan Now"_s);
    stage.settle();
}

void playAppOfTheUser(Stage& stage)
{
    playApps(stage);
    stage.choose(u"Tide Table"_s);
    stage.settle();
}

void playAppImage(Stage& stage)
{
    playApps(stage);
    stage.choose(u"Krita"_s);
    stage.settle();
}

/// With the question that names the command of its package, which is a window of its own.
void playContainedApp(Stage& stage)
{
    playApps(stage);
    stage.choose(u"Maps"_s);
    stage.settle();
    stage.press(u"Remove…"_s);
    EXPECT_EQ(stage.alerts.requests().size(), 1);
}

void playJunk(Stage& stage)
{
    stage.becomeLinux().populate();
    stage.goTo(Screen::junkCleaner);
    stage.settle();
}

/// Two of the caches are in use, which their tool tips say.
void playJunkOfRunningBrowser(Stage& stage)
{
    const MadeUpLinux home = stage.becomeLinux();
    home.populate();
    home.addProcesses({{"/usr/lib/firefox-esr/firefox-esr"}, {"/usr/bin/gnome-shell"}});
    stage.goTo(Screen::junkCleaner);
    stage.settle();
    stage.choose(u"Browser Caches"_s);
}

void playStorage(Stage& stage)
{
    stage.becomeLinux(MadeUpLinux::Language::german).populate();
    stage.goTo(Screen::storageBrowser);
    stage.press(u"Home"_s);
    stage.settle();
}

void playScanReport(Stage& stage)
{
    stage.becomeLinux().populate();
    stage.files.freeBytes = 61'000'000'000;
    stage.goTo(Screen::scanResults);
    stage.press(u"Start Full Scan"_s);
    stage.settle();
}

} // namespace

QList<ScreenState> linuxStates()
{
    return {
        {"protected-items", "linux", playProtectedItems},
        {"app-manager", "linux-list", playApps},
        {"app-manager", "linux-own", playAppOfTheUser},
        {"app-manager", "linux-appimage", playAppImage},
        {"app-manager", "linux-contained", playContainedApp},
        {"junk-cleaner", "linux-found", playJunk},
        {"junk-cleaner", "linux-browser-runs", playJunkOfRunningBrowser},
        {"storage", "linux", playStorage},
        {"scan-results", "linux-report", playScanReport},
    };
}

} // namespace keelbright::testing
