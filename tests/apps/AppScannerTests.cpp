#include "KeelbrightCore/apps/AppScanner.h"

#include "tests/apps/AppScannerTestCase.h"
#include "tests/support/MadeUpMac.h"

#include <QMap>
#include <QSet>
#include <algorithm>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppScannerTests : public AppScannerTestCase
{
protected:
    static QStringList names(const QList<AppInfo>& apps)
    {
        QStringList names;
        for (const AppInfo& app : apps)
            names.append(app.name);
        return names;
    }
};

} // namespace

TEST_F(AppScannerTests, withoutAnyRootTheListIsEmpty)
{
    EXPECT_EQ(paths(), QByteArrayList());
}

TEST_F(AppScannerTests, eachOfTheThreeRootsIsListed)
{
    addBundle("Applications/One.app");
    addBundle("Applications/Utilities/Two.app");
    addBundle("Users/mira/Applications/Three.app");
    EXPECT_EQ(paths(), (QByteArrayList{"Applications/One.app", "Applications/Utilities/Two.app",
                                       "Users/mira/Applications/Three.app"}));
}

TEST_F(AppScannerTests, aRootThatCanNotBeListedContributesNothing)
{
    m_files.text("Applications", "no folder");
    m_files.link("Users/mira/Applications", "Applications");
    EXPECT_EQ(paths(), QByteArrayList());
}

TEST_F(AppScannerTests, theOtherRootsAreListedWithoutOne)
{
    m_files.text("Applications", "no folder");
    addBundle("Users/mira/Applications/Three.app");
    EXPECT_EQ(paths(), QByteArrayList{"Users/mira/Applications/Three.app"});
}

TEST_F(AppScannerTests, aBundleInASubfolderIsNotFound)
{
    addBundle("Applications/Suite/Word.app");
    addBundle("Applications/Suite.app/Contents/Helpers/Inner.app");
    EXPECT_EQ(paths(), QByteArrayList());
}

TEST_F(AppScannerTests, aHiddenBundleIsNotListed)
{
    addBundle("Applications/.Hidden.app");
    addBundle("Applications/.app");
    EXPECT_EQ(paths(), QByteArrayList());
}

TEST_F(AppScannerTests, theExtensionIsInSmallLetters)
{
    addBundle("Applications/Loud.APP");
    addBundle("Applications/Mixed.App");
    addBundle("Applications/None");
    addBundle("Applications/Other.appex");
    addBundle("Applications/x.app.bak");
    EXPECT_EQ(paths(), QByteArrayList());
}

TEST_F(AppScannerTests, utilitiesAsALinkIntoApplicationsAreListedOnceUnderTheEarlierRoot)
{
    addBundle("Applications/One.app");
    addBundle("Applications/Tools/Two.app");
    m_files.link("Applications/Utilities", "Tools");
    EXPECT_EQ(paths(), (QByteArrayList{"Applications/One.app", "Applications/Utilities/Two.app"}));
}

TEST_F(AppScannerTests, utilitiesAsALinkToApplicationsItselfAddNothing)
{
    addBundle("Applications/One.app");
    m_files.link("Applications/Utilities", ".");
    EXPECT_EQ(paths(), QByteArrayList{"Applications/One.app"});
}

TEST_F(AppScannerTests, aLinkInTheHomeToAnApplicationIsListedOnceUnderTheEarlierRoot)
{
    addBundle("Applications/One.app");
    m_files.link("Users/mira/Applications/Mine.app", "../../../Applications/One.app");
    EXPECT_EQ(paths(), QByteArrayList{"Applications/One.app"});
}

TEST_F(AppScannerTests, aLinkToABundleElsewhereIsListedWhereItWasFound)
{
    addBundle("opt/One.app");
    m_files.link("Applications/Linked.app", "../opt/One.app");
    EXPECT_EQ(paths(), QByteArrayList{"Applications/Linked.app"});
}

TEST_F(AppScannerTests, theDisplayNameComesBeforeTheName)
{
    addBundle("Applications/File.app", {{"CFBundleIdentifier", "org.example.app"},
                                        {"CFBundleName", "Name"},
                                        {"CFBundleDisplayName", "Display Name"}});
    EXPECT_EQ(scanOne().name, u"Display Name"_s);
}

TEST_F(AppScannerTests, aDisplayNameThatIsANumberGivesWayToTheName)
{
    m_files.text("Applications/File.app/Contents/Info.plist",
                 "<plist><dict><key>CFBundleIdentifier</key><string>org.example.app</string>"
                 "<key>CFBundleDisplayName</key><integer>7</integer>"
                 "<key>CFBundleName</key><string>Name</string></dict></plist>");
    EXPECT_EQ(scanOne().name, u"Name"_s);
}

TEST_F(AppScannerTests, withoutEitherNameTheFileNameStandsWithoutItsExtension)
{
    addBundle("Applications/My File.2.app");
    EXPECT_EQ(scanOne().name, u"My File.2"_s);
}

TEST_F(AppScannerTests, anEmptyNameIsTakenAsItIs)
{
    addBundle(
        "Applications/File.app",
        {{"CFBundleIdentifier", "org.example.app"}, {"CFBundleDisplayName", ""}, {"CFBundleName", "Name"}});
    EXPECT_EQ(scanOne().name, u""_s);
}

TEST_F(AppScannerTests, aFileNameThatIsNotUtf8IsKeptInItsLocation)
{
    addBundle("Applications/caf\xE9.app");
    const AppInfo app = scanOne();
    EXPECT_EQ(app.name, u"caf\uFFFD"_s);
    EXPECT_EQ(app.url, m_mac.root().appendingNative("Applications/caf\xE9.app"));
}

TEST_F(AppScannerTests, anApplicationWithoutAnIdentifierIsLeftOut)
{
    addBundle("Applications/None.app", Entries{{"CFBundleName", "None"}});
    m_files.text("Applications/Number.app/Contents/Info.plist",
                 "<plist><dict><key>CFBundleIdentifier</key><integer>7</integer></dict></plist>");
    EXPECT_EQ(paths(), QByteArrayList());
}

TEST_F(AppScannerTests, noIdentifierIsFiltered)
{
    addBundle("Applications/Empty.app", "");
    addBundle("Applications/System.app", "com.apple.finder");
    addBundle("Applications/Twin.app", "com.apple.finder");
    EXPECT_EQ(paths(),
              (QByteArrayList{"Applications/Empty.app", "Applications/System.app", "Applications/Twin.app"}));
}

TEST_F(AppScannerTests, theVersionIsEmptyWhereThereIsNone)
{
    addBundle("Applications/One.app");
    EXPECT_EQ(scanOne().version, u""_s);
}

TEST_F(AppScannerTests, bothFormsOfPropertyListsAreRead)
{
    const Entries entries{{"CFBundleIdentifier", "org.example.ink"},
                          {"CFBundleName", "Ink"},
                          {"CFBundleShortVersionString", "2.10.1"}};
    for (const PropertyListForm form : {PropertyListForm::xml, PropertyListForm::binary}) {
        addBundle("Applications/One.app", entries, form);
        const AppInfo app = scanOne();
        EXPECT_EQ(app.name, u"Ink"_s);
        EXPECT_EQ(app.bundleID, u"org.example.ink"_s);
        EXPECT_EQ(app.version, u"2.10.1"_s);
        EXPECT_EQ(app.url, m_mac.root().appendingNative("Applications/One.app"));
    }
}

TEST_F(AppScannerTests, theMetadataMakeTheVerdictByTheGivenClock)
{
    addMetadataTool(m_files);
    addApplication(m_files, "Applications",
                   {.name = "Ink",
                    .bundleID = "org.example.ink",
                    .lastUsedDaysAgo = 3,
                    .useCount = 240,
                    .addedDaysAgo = 700});
    const AppInfo app = scanOne();
    // The tool prints whole seconds, and the clock is at a whole second too.
    EXPECT_EQ(app.lastUsedDate, m_mac.clock()().addDays(-3));
    EXPECT_EQ(app.useCount, 240);
    EXPECT_EQ(app.dateAdded, m_mac.clock()().addDays(-700));
    EXPECT_EQ(app.usageCategory, UsageCategory::dailyDriver);
    EXPECT_EQ(app.usageDescription, u"Used 240 times — last opened 3 days ago."_s);
}

TEST_F(AppScannerTests, withoutValuesInTheIndexAnApplicationHasNoDatesAndNoUses)
{
    addMetadataTool(m_files);
    addApplication(m_files, "Applications", {.name = "Ink", .bundleID = "org.example.ink"});
    const AppInfo app = scanOne();
    EXPECT_EQ(app.lastUsedDate, std::nullopt);
    EXPECT_EQ(app.useCount, 0);
    EXPECT_EQ(app.dateAdded, std::nullopt);
    EXPECT_EQ(app.usageDescription, u"Never opened."_s);
}

TEST_F(AppScannerTests, withoutTheMetadataToolAnApplicationWasNeverOpened)
{
    addBundle("Applications/One.app");
    const AppInfo app = scanOne();
    EXPECT_EQ(app.usageCategory, UsageCategory::forgotten);
    EXPECT_EQ(app.usageDescription, u"Never opened."_s);
}

TEST_F(AppScannerTests, theListIsSortedByPriorityThenByTheLongestUnused)
{
    addMetadataTool(m_files);
    const auto add = [this](const QByteArray& name, std::optional<int> used, std::optional<int> uses,
                            std::optional<int> added) {
        addApplication(m_files, "Applications",
                       {.name = name,
                        .bundleID = "org.example." + name,
                        .lastUsedDaysAgo = used,
                        .useCount = uses,
                        .addedDaysAgo = added});
    };
    add("Daily", 2, 500, 900);
    add("DailyOlder", 9, 500, 900);
    add("New", {}, {}, 3);
    add("Unknown", {}, 12, 900);
    add("Seasonal", 100, 900, 900);
    add("Occasional", 40, 9, 900);
    add("OccasionalOlder", 50, 9, 900);
    add("Forgotten", 300, 9, 900);
    add("ForgottenOlder", 600, 9, 900);
    add("ForgottenNever", {}, 1, 900);
    EXPECT_EQ(names(scan()), (QStringList{u"ForgottenNever"_s, u"ForgottenOlder"_s, u"Forgotten"_s,
                                          u"OccasionalOlder"_s, u"Occasional"_s, u"Seasonal"_s, u"Unknown"_s,
                                          u"New"_s, u"DailyOlder"_s, u"Daily"_s}));
}

TEST_F(AppScannerTests, eachScanStartsFromNothingAndGivesNewIds)
{
    addBundle("Applications/One.app");
    const AppInfo first = scanOne();
    const AppInfo second = scanOne();
    EXPECT_NE(first.id, second.id);
    addBundle("Applications/Two.app");
    EXPECT_EQ(scan().size(), 2);
}

TEST_F(AppScannerTests, aWholeMachineIsRead)
{
    const MadeUpMac machine(m_mac.root(), m_mac.clock()());
    machine.addApplications();
    const QList<AppInfo> apps = scan();
    ASSERT_GT(apps.size(), 5);
    QSet<UsageCategory> categories;
    for (const AppInfo& app : apps) {
        EXPECT_FALSE(app.name.isEmpty());
        EXPECT_FALSE(app.bundleID.isEmpty());
        categories.insert(app.usageCategory);
    }
    EXPECT_GT(categories.size(), 2);
}

TEST_F(AppScannerTests, ofAHundredApplicationsNeverMoreThan32AreInWork)
{
    addNumberedBundles(100);
    m_files.folder("alive");
    // Each prints how many there are while it is one of them. The first 32 wait for each other, so
    // that the whole width is seen.
    setMetadataTool(R"sh(: > "$root/alive/$$"
ls "$root/alive" | wc -l > "$root/count.$name"
waited=0
while [ ! -e "$root/full" ] && [ $waited -lt 200 ]; do
    [ "$(ls "$root/alive" | wc -l)" -ge 32 ] && : > "$root/full"
    sleep 0.1
    waited=$((waited + 1))
done
sleep 0.02
rm "$root/alive/$$")sh");
    EXPECT_EQ(scan().size(), 100);
    int maximum = 0;
    for (int number = 0; number < 100; ++number) {
        const QByteArray count =
            TestMac::read(m_mac.root().appendingNative("count.App" + QByteArray::number(number) + ".app"));
        maximum = std::max(maximum, count.trimmed().toInt());
    }
    EXPECT_EQ(maximum, 32);
}

TEST_F(AppScannerTests, ofTwoScansAtOnceNeverMoreThan32ToolsAreAlive)
{
    addNumberedBundles(60);
    m_files.folder("alive");
    // None ends before there are 32, and then there is time for one more.
    setMetadataTool(R"sh(: > "$root/alive/$$"
ls "$root/alive" | wc -l >> "$root/counts"
waited=0
while [ ! -e "$root/full" ] && [ $waited -lt 200 ]; do
    [ "$(ls "$root/alive" | wc -l)" -ge 32 ] && sleep 0.3 && : > "$root/full"
    sleep 0.1
    waited=$((waited + 1))
done
rm "$root/alive/$$")sh");
    const auto first = AppScanner::scan(m_mac.clock());
    const auto second = AppScanner::scan(m_mac.clock());
    EXPECT_EQ(first.result().size(), 60);
    EXPECT_EQ(second.result().size(), 60);
    const QByteArrayList counts = TestMac::read(m_mac.root().appending(u"counts"_s)).trimmed().split('\n');
    EXPECT_EQ(counts.size(), 120);
    int maximum = 0;
    for (const QByteArray& count : counts)
        maximum = std::max(maximum, count.trimmed().toInt());
    EXPECT_EQ(maximum, 32);
}

TEST_F(AppScannerTests, aToolThatPrintsWithoutEndCostsItsOwnMetadataOnly)
{
    addNumberedBundles(3);
    setMetadataTool(R"sh([ "$name" = App1.app ] && exec yes
echo "kMDItemUseCount = 7")sh");
    QMap<QString, qint64> uses;
    for (const AppInfo& app : scan())
        uses.insert(app.name, app.useCount);
    EXPECT_EQ(uses, (QMap<QString, qint64>{{u"App0"_s, 7}, {u"App1"_s, 0}, {u"App2"_s, 7}}));
}

TEST_F(AppScannerTests, aSlowApplicationHoldsBackNoOther)
{
    addNumberedBundles(70);
    m_files.folder("done");
    // The first to come ends after all others have: one out lets one in, there are no batches.
    setMetadataTool(R"sh(if mkdir "$root/first" 2>/dev/null; then
    waited=0
    while [ "$(ls "$root/done" | wc -l)" -lt 69 ]; do
        [ $waited -ge 300 ] && { : > "$root/late";
        exit; }
        sleep 0.1
        waited=$((waited + 1))
    done
else
    : > "$root/done/$name"
fi)sh");
    EXPECT_EQ(scan().size(), 70);
    EXPECT_FALSE(m_mac.fileManager().fileExists(m_mac.root().appending(u"late"_s)).exists);
}

TEST_F(AppScannerTests, twoScansAtOnceBothReachEveryApplication)
{
    addNumberedBundles(60);
    setMetadataTool("sleep 0.01");
    const auto first = AppScanner::scan(m_mac.clock());
    const auto second = AppScanner::scan(m_mac.clock());
    EXPECT_EQ(first.result().size(), 60);
    EXPECT_EQ(second.result().size(), 60);
}

} // namespace keelbright::testing
