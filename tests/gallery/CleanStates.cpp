#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

// App Manager.

void playAppsEmpty(Stage& stage)
{
    stage.goTo(Screen::appManager);
}

void playAppsBusy(Stage& stage)
{
    stage.mira.populate();
    stage.start();
    stage.files.holdNextLookAt(stage.files.systemLocation(u"/Applications"_s));
    stage.goTo(Screen::appManager);
    stage.press(u"Scan Now"_s);
}

void playApps(Stage& stage)
{
    stage.mira.populate();
    stage.goTo(Screen::appManager);
    stage.press(u"Scan Now"_s);
    stage.settle();
}

void playAppDetail(Stage& stage)
{
    playApps(stage);
    stage.choose(u"Sketchbook"_s);
    stage.settle();
}

void playAppFilesBusy(Stage& stage)
{
    playApps(stage);
    stage.files.holdNextLookAt(stage.mac.home().appending(u"Library/Group Containers"_s));
    stage.choose(u"Sketchbook"_s);
    EXPECT_TRUE(stage.files.waitUntilHeld());
    Stage::turnFrames();
}

void playAppLookedUp(Stage& stage)
{
    playAppDetail(stage);
    stage.press(u"Look Up on App Store"_s);
    stage.settle();
}

void playAppUnknownToTheStore(Stage& stage)
{
    playApps(stage);
    stage.choose(u"Brew Timer"_s);
    stage.settle();
    stage.press(u"Look Up on App Store"_s);
    stage.settle();
}

void playAppsNoMatch(Stage& stage)
{
    playApps(stage);
    stage.write(u"Search apps"_s, u"no such application"_s);
    stage.settle();
}

// Junk Cleaner.

void playJunkBusy(Stage& stage)
{
    stage.mira.populate();
    stage.start();
    stage.files.holdNextLookAt(stage.mac.home().appending(u".Trash"_s));
    stage.goTo(Screen::junkCleaner);
    EXPECT_TRUE(stage.files.waitUntilHeld());
    Stage::turnFrames();
}

void playJunkClean(Stage& stage)
{
    stage.mira.addPersonalFiles();
    stage.goTo(Screen::junkCleaner);
    stage.settle();
}

void playJunk(Stage& stage)
{
    stage.mira.populate();
    stage.goTo(Screen::junkCleaner);
    stage.settle();
}

void playJunkSelected(Stage& stage)
{
    stage.mira.populate();
    MadeUpFiles(stage.mac.root(), stage.mac.clock()())
        .hole("Users/mira/Library/Caches/" + QByteArray(longName) + "/cache.db", 12'000'000);
    stage.goTo(Screen::junkCleaner);
    stage.settle();
    stage.choose(u"User Caches"_s);
    stage.press(u"Select All"_s);
}

} // namespace

QList<ScreenState> cleanStates()
{
    return {
        {"app-manager", "empty", playAppsEmpty},
        {"app-manager", "busy", playAppsBusy},
        {"app-manager", "list", playApps},
        {"app-manager", "detail", playAppDetail},
        {"app-manager", "files-busy", playAppFilesBusy},
        {"app-manager", "looked-up", playAppLookedUp, true},
        {"app-manager", "not-in-store", playAppUnknownToTheStore},
        {"app-manager", "no-match", playAppsNoMatch},
        {"junk-cleaner", "busy", playJunkBusy},
        {"junk-cleaner", "clean", playJunkClean},
        {"junk-cleaner", "found", playJunk, true},
        {"junk-cleaner", "selected", playJunkSelected},
    };
}

} // namespace keelbright::testing
