#include "KeelbrightCore/apps/UsageRecords.h"

#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/PlasmaDatabase.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using UsageReading::gnomeState;
using UsageReading::plasmaDatabase;
using UsageReading::recentFiles;

namespace {

QDateTime day(int month, int dayOfMonth, int hour = 12)
{
    return {QDate(2026, month, dayOfMonth), QTime(hour, 0), utcZone};
}

/// The bookmarks as GLib writes them, with these elements of one document.
QByteArray xbel(const QByteArray& applications)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0"
      xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks"
      xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info">
  <bookmark href="file:///home/mira/letter.odt" added="2026-01-01T08:00:00.000001Z" modified="2026-02-01T12:00:00.123456Z" visited="2026-02-01T12:00:00.123456Z">
    <info>
      <metadata owner="http://freedesktop.org">
        <mime:mime-type type="application/vnd.oasis.opendocument.text"/>
        <bookmark:applications>)" +
           applications + R"(</bookmark:applications>
      </metadata>
    </info>
  </bookmark>
</xbel>
)";
}

/// What one application with that score in the state of GNOME's shell has been used.
qint64 usesOfScore(const QByteArray& score)
{
    const QByteArray state = "<application-state><context id=\"\"><application id=\"a.desktop\" score=\"" +
                             score + "\" last-seen=\"1767268800\"/></context></application-state>";
    return gnomeState(state).value(u"a"_s).count;
}

DesktopApplication application(const QString& id, const QString& exec)
{
    DesktopApplication made{.id = id, .file = {}, .dataFolder = {}, .entry = {}};
    made.entry.exec = exec;
    return made;
}

} // namespace

TEST(RecentFiles, eachProgramHasItsOpeningsAndItsLastOne)
{
    const auto recent = recentFiles(xbel(
        R"(<bookmark:application name="Evince" exec="&apos;evince %u&apos;" modified="2026-02-01T12:00:00.123456Z" count="3"/>
                <bookmark:application name="Evince" exec="&apos;/usr/bin/evince %u&apos;" modified="2026-01-31T12:00:00Z" count="2"/>
                <bookmark:application name="gedit" exec="gedit %u" timestamp="1767268800" count="1"/>)"));
    ASSERT_EQ(recent.byProgram.size(), 2);
    EXPECT_EQ(recent.byProgram.value(u"evince"_s).count, 5);
    EXPECT_EQ(recent.byProgram.value(u"evince"_s).last, day(2, 1).addMSecs(123));
    EXPECT_EQ(recent.byProgram.value(u"gedit"_s), (AppUse{.count = 1, .last = day(1, 1)}));
    EXPECT_EQ(recent.byName.value(u"Evince"_s).count, 5);
}

TEST(RecentFiles, aCountThatIsNoneIsPassedOver)
{
    EXPECT_TRUE(recentFiles(xbel(R"(<bookmark:application name="a" exec="a" count="0"/>
                                    <bookmark:application name="b" exec="b" count="-2"/>
                                    <bookmark:application name="c" exec="c" count="many"/>
                                    <bookmark:application name="d" exec="d" count="99999999999"/>
                                    <bookmark:application name="e" exec="e"/>)"))
                    .byProgram.isEmpty());
}

TEST(RecentFiles, whatStandsBeforeAMistakeCounts)
{
    const QByteArray whole = xbel(R"(<bookmark:application name="a" exec="a" count="4"/>)");
    EXPECT_EQ(recentFiles(whole.left(whole.indexOf("</info>"))).byProgram.value(u"a"_s).count, 4);
    EXPECT_TRUE(recentFiles("no XML").byProgram.isEmpty());
    EXPECT_TRUE(recentFiles({}).byProgram.isEmpty());
}

TEST(RecentFiles, ownEntitiesAreNotExpanded)
{
    const QByteArray bomb = R"(<?xml version="1.0"?><!DOCTYPE xbel [<!ENTITY a "aaaaaaaaaa">]>)"
                            R"(<xbel><bookmark:application name="&a;" exec="a" count="4"/></xbel>)";
    EXPECT_TRUE(recentFiles(bomb).byProgram.isEmpty());
}

TEST(GnomeState, eachApplicationHasItsUsesAndWhenItWasLastSeen)
{
    const auto uses = gnomeState(R"(<?xml version="1.0"?>
<application-state>
  <context id="">
    <application id="org.gnome.Nautilus.desktop" score="3600" last-seen="1769947200"/>
    <application id="firefox.desktop" score="41.70" last-seen="1767268800"/>
    <application id="window:12" score="3000" last-seen="1767268800"/>
  </context>
</application-state>
)");
    EXPECT_EQ(uses.size(), 2);
    EXPECT_EQ(uses.value(u"org.gnome.Nautilus"_s), (AppUse{.count = 84, .last = day(2, 1)}));
    EXPECT_EQ(uses.value(u"firefox"_s), (AppUse{.count = 1, .last = day(1, 1)}));
}

TEST(GnomeState, fiveMinutesOfFocusAreOneUseAndThereIsAtLeastOne)
{
    EXPECT_EQ(usesOfScore("0"), 1);
    EXPECT_EQ(usesOfScore("1"), 1);
    EXPECT_EQ(usesOfScore("42"), 1) << "294 seconds";
    EXPECT_EQ(usesOfScore("43"), 1) << "301 seconds";
    EXPECT_EQ(usesOfScore("85"), 1) << "595 seconds";
    EXPECT_EQ(usesOfScore("86"), 2) << "602 seconds";
    EXPECT_EQ(usesOfScore("300"), 7) << "2100 seconds";
    EXPECT_EQ(usesOfScore("25714"), 599) << "the largest that the shell writes";
}

TEST(GnomeState, whatIsNoScoreIsOneUse)
{
    EXPECT_EQ(usesOfScore("1000000000"), 23'333'333);
    for (const char* score :
         {"1000000001", "1e300", "-1", "-25714", "nan", "-nan", "inf", "-inf", "many", ""})
        EXPECT_EQ(usesOfScore(score), 1) << score;
}

TEST(PlasmaUsage, eachStartFromAMenuCounts)
{
    const TestLinux machine;
    const FileURL file = machine.atHome("database");
    const PlasmaDatabase database(file);
    database.addEvent("applications:org.kde.kate.desktop", day(1, 10));
    database.addEvent("applications:org.kde.kate.desktop", day(2, 10));
    database.addEvent("applications:org.kde.dolphin.desktop", day(1, 5));
    database.addEvent("/home/mira/letter.odt", day(2, 20));
    database.addEvent("applications:", day(2, 20));
    const auto uses = plasmaDatabase(file);
    EXPECT_EQ(uses.size(), 2);
    EXPECT_EQ(uses.value(u"org.kde.kate"_s), (AppUse{.count = 2, .last = day(2, 10)}));
    EXPECT_EQ(uses.value(u"org.kde.dolphin"_s), (AppUse{.count = 1, .last = day(1, 5)}));
}

TEST(PlasmaUsage, aDatabaseThatIsInUseIsRead)
{
    const TestLinux machine;
    const FileURL file = machine.atHome("database");
    const PlasmaDatabase database(file);
    database.addEvent("applications:a.desktop", day(1, 10));
    database.beginWriting();
    EXPECT_EQ(plasmaDatabase(file).size(), 1);
}

TEST(PlasmaUsage, whatIsNoSuchDatabaseIsEmpty)
{
    const TestLinux machine;
    EXPECT_TRUE(plasmaDatabase(machine.atHome("none")).isEmpty());
    machine.files().text("home/mira/text", "SQLite format 4");
    EXPECT_TRUE(plasmaDatabase(machine.atHome("text")).isEmpty());
    EXPECT_TRUE(plasmaDatabase(machine.home()).isEmpty());
}

TEST(UsageRecords, withoutARecordNothingIsKnown)
{
    TestLinux machine;
    EXPECT_EQ(UsageRecords(machine.fileManager()).of(application(u"a"_s, u"a"_s)), std::nullopt);
}

TEST(UsageRecords, whatSeveralDesktopsKnowIsJoinedByTheIdOfTheEntry)
{
    TestLinux machine;
    machine.files().text(
        "home/mira/.local/share/recently-used.xbel",
        xbel(R"(<bookmark:application name="x" exec="kate %u" modified="2026-02-20T12:00:00Z" count="3"/>)"));
    machine.files().text(
        "home/mira/.local/share/gnome-shell/application_state",
        R"(<application-state><context id=""><application id="org.kde.kate.desktop" score="2" last-seen="1767268800"/></context></application-state>)");
    machine.files().folder("home/mira/.local/share/kactivitymanagerd/resources");
    PlasmaDatabase(machine.atHome(".local/share/kactivitymanagerd/resources/database"))
        .addEvent("applications:org.kde.kate.desktop", day(2, 10));
    const UsageRecords records(machine.fileManager());
    EXPECT_EQ(records.of(application(u"org.kde.kate"_s, u"/usr/bin/kate -b %U"_s)),
              (AppUse{.count = 3, .last = day(2, 20)}));
    EXPECT_EQ(records.of(application(u"other"_s, u"other"_s)), std::nullopt);
}

TEST(UsageRecords, aProgramThatRunsOthersSaysNothingOfThem)
{
    TestLinux machine;
    machine.files().text(
        "home/mira/.local/share/recently-used.xbel",
        xbel(
            R"(<bookmark:application name="x" exec="python3 %u" modified="2026-02-20T12:00:00Z" count="3"/>)"));
    EXPECT_EQ(UsageRecords(machine.fileManager()).of(application(u"a"_s, u"python3 /opt/a.py"_s)),
              std::nullopt);
}

TEST(UsageRecords, theProgramIsTheOneBehindItsPath)
{
    EXPECT_EQ(ownProgramOf(application({}, u"/usr/bin/gedit %U"_s).entry), u"gedit"_s);
    EXPECT_EQ(ownProgramOf(application({}, u"flatpak run org.gnome.Maps"_s).entry), QString());
    EXPECT_EQ(ownProgramOf(application({}, u"python3.11 x"_s).entry), QString());
}

} // namespace keelbright::testing
