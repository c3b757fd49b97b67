#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

void playOrganizerEmpty(Stage& stage)
{
    stage.mira.populate();
    stage.goTo(Screen::organizer);
}

void playOrganizerBusy(Stage& stage)
{
    stage.mira.populate();
    stage.goTo(Screen::organizer);
    stage.files.holdNextLookAt(stage.mac.home().appending(u"Downloads"_s));
    stage.press(u"Downloads"_s);
    EXPECT_TRUE(stage.files.waitUntilHeld());
    Stage::turnFrames();
}

void playOrganizer(Stage& stage)
{
    stage.mira.populate();
    MadeUpFiles(stage.mac.root(), stage.mac.clock()())
        .hole("Users/mira/Downloads/" + QByteArray(longName) + ".mov", 7'000'000'000);
    stage.goTo(Screen::organizer);
    stage.press(u"Downloads"_s);
    stage.settle();
}

void playOrganizerHighContrast(Stage& stage)
{
    playOrganizer(stage);
    Stage::raiseContrast();
}

void playOrganizerTidy(Stage& stage)
{
    stage.mac.makeFolder("Users/mira/Desktop");
    stage.goTo(Screen::organizer);
    stage.press(u"Desktop"_s);
    stage.settle();
}

} // namespace

QList<ScreenState> organiseStates()
{
    return {
        {"organizer", "empty", playOrganizerEmpty},
        {"organizer", "busy", playOrganizerBusy},
        {"organizer", "found", playOrganizer, true},
        {"organizer", "high-contrast", playOrganizerHighContrast},
        {"organizer", "tidy", playOrganizerTidy},
    };
}

} // namespace keelbright::testing
