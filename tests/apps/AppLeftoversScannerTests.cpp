#include "KeelbrightCore/apps/AppLeftoversScanner.h"

#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class AppLeftoversScannerTests : public ::testing::Test
{
protected:
    /// What is found, each as "path, size, kind"; the path below the root, the home as "~".
    [[nodiscard]] std::vector<std::string> scan(const QString& bundleID = u"org.example.ink"_s,
                                                const QString& appName = u"Ink"_s) const
    {
        std::vector<std::string> lines;
        for (const AppLeftover& leftover : AppLeftoversScanner::scan(bundleID, appName)) {
            QByteArray path = leftover.url.nativePath();
            path.replace(m_mac.home().nativePath(), "~").replace(m_mac.root().nativePath(), "");
            lines.push_back((path + ", " + QByteArray::number(leftover.sizeBytes) + ", " +
                             AppLeftover::rawValue(leftover.kind).toUtf8())
                                .toStdString());
        }
        return lines;
    }

    /// A file of that many bytes below the home's Library.
    FileURL add(const QByteArray& path, qsizetype size) const
    {
        return m_mac.writeFile("Users/mira/Library/" + path, QByteArray(size, 'x'));
    }

    TestMac m_mac;
};

} // namespace

TEST_F(AppLeftoversScannerTests, anApplicationThatLeftNothingHasNoLeftovers)
{
    EXPECT_THAT(scan(), IsEmpty());
    add("Preferences/org.example.pencil.plist", 10);
    add("Caches/org.example.pencil/data", 10);
    add("Group Containers/group.org.example.pencil/data", 10);
    m_mac.writeFile("Library/LaunchAgents/org.example.pencil.plist", "x");
    EXPECT_THAT(scan(), IsEmpty());
}

TEST_F(AppLeftoversScannerTests, everyFixedPlaceIsFoundUnderItsKind)
{
    add("Preferences/org.example.ink.plist", 140);
    add("Preferences/org.example.ink.LSSharedFileList.plist", 130);
    add("Caches/org.example.ink/data", 120);
    add("Application Support/org.example.ink/data", 110);
    add("Application Support/Ink/data", 100);
    add("Containers/org.example.ink/data", 90);
    add("Saved Application State/org.example.ink.savedState/data", 80);
    add("WebKit/org.example.ink/data", 70);
    add("HTTPStorages/org.example.ink/data", 60);
    add("HTTPStorages/org.example.ink.binarycookies", 50);
    add("Application Scripts/org.example.ink/data", 40);
    add("LaunchAgents/org.example.ink.plist", 30);
    m_mac.writeFile("Library/LaunchAgents/org.example.ink.plist", QByteArray(20, 'x'));
    m_mac.writeFile("Library/LaunchDaemons/org.example.ink.plist", QByteArray(10, 'x'));
    EXPECT_THAT(scan(), ElementsAre("~/Library/Preferences/org.example.ink.plist, 140, Preferences",
                                    "~/Library/Preferences/org.example.ink.LSSharedFileList.plist, 130, "
                                    "Preferences",
                                    "~/Library/Caches/org.example.ink, 120, Cache",
                                    "~/Library/Application Support/org.example.ink, 110, App Support",
                                    "~/Library/Application Support/Ink, 100, App Support",
                                    "~/Library/Containers/org.example.ink, 90, Container",
                                    "~/Library/Saved Application State/org.example.ink.savedState, 80, "
                                    "Saved State",
                                    "~/Library/WebKit/org.example.ink, 70, Cache",
                                    "~/Library/HTTPStorages/org.example.ink, 60, Cache",
                                    "~/Library/HTTPStorages/org.example.ink.binarycookies, 50, Cache",
                                    "~/Library/Application Scripts/org.example.ink, 40, App Support",
                                    "~/Library/LaunchAgents/org.example.ink.plist, 30, Launch Agent",
                                    "/Library/LaunchAgents/org.example.ink.plist, 20, Launch Agent",
                                    "/Library/LaunchDaemons/org.example.ink.plist, 10, Launch Agent"));
}

TEST_F(AppLeftoversScannerTests, aLaunchDaemonOfTheSystemIsALaunchAgent)
{
    m_mac.writeFile("Library/LaunchDaemons/org.example.ink.plist", "123");
    EXPECT_THAT(scan(), ElementsAre("/Library/LaunchDaemons/org.example.ink.plist, 3, Launch Agent"));
}

TEST_F(AppLeftoversScannerTests, leftoversOfEqualSizeStandInTheOrderInWhichTheyWereFound)
{
    m_mac.writeFile("Library/LaunchDaemons/org.example.ink.plist", "12345");
    add("LaunchAgents/org.example.ink.plist", 5);
    add("Caches/org.example.ink/data", 5);
    add("Group Containers/team.org.example.ink/data", 5);
    add("Preferences/org.example.ink.helper.plist", 5);
    add("Preferences/org.example.ink.plist", 5);
    add("Application Support/Ink/data", 6);
    EXPECT_THAT(scan(), ElementsAre("~/Library/Application Support/Ink, 6, App Support",
                                    "~/Library/Preferences/org.example.ink.plist, 5, Preferences",
                                    "~/Library/Caches/org.example.ink, 5, Cache",
                                    "~/Library/LaunchAgents/org.example.ink.plist, 5, Launch Agent",
                                    "/Library/LaunchDaemons/org.example.ink.plist, 5, Launch Agent",
                                    "~/Library/Group Containers/team.org.example.ink, 5, Container",
                                    "~/Library/Preferences/org.example.ink.helper.plist, 5, Preferences"));
}

TEST_F(AppLeftoversScannerTests, anEntryWithoutContentIsKept)
{
    m_mac.makeFolder("Users/mira/Library/Caches/org.example.ink");
    add("Preferences/org.example.ink.plist", 0);
    EXPECT_THAT(scan(), ElementsAre("~/Library/Preferences/org.example.ink.plist, 0, Preferences",
                                    "~/Library/Caches/org.example.ink, 0, Cache"));
}

TEST_F(AppLeftoversScannerTests, aFolderIsMeasuredToItsDepthWithoutHiddenFiles)
{
    add("Caches/org.example.ink/a/b/c", 10);
    add("Caches/org.example.ink/d", 1);
    add("Caches/org.example.ink/.hidden", 100);
    EXPECT_THAT(scan(), ElementsAre("~/Library/Caches/org.example.ink, 11, Cache"));
}

TEST_F(AppLeftoversScannerTests, theFilesOfAHelperAreFoundByTheirPrefixAndNothingTwice)
{
    add("Preferences/org.example.ink.plist", 9);
    add("Preferences/org.example.ink.LSSharedFileList.plist", 8);
    add("Preferences/org.example.ink.helper.plist", 7);
    EXPECT_THAT(scan(), ElementsAre("~/Library/Preferences/org.example.ink.plist, 9, Preferences",
                                    "~/Library/Preferences/org.example.ink.LSSharedFileList.plist, 8, "
                                    "Preferences",
                                    "~/Library/Preferences/org.example.ink.helper.plist, 7, Preferences"));
}

TEST_F(AppLeftoversScannerTests, aPreferencesFileNeedsNoDotBehindTheIdentifier)
{
    add("Preferences/org.example.inkling.plist", 3);
    EXPECT_THAT(scan(), ElementsAre("~/Library/Preferences/org.example.inkling.plist, 3, Preferences"));
}

TEST_F(AppLeftoversScannerTests, aPreferencesFileHasItsExtensionInSmallLettersAndItsPrefixInFront)
{
    add("Preferences/org.example.ink.helper.PLIST", 3);
    add("Preferences/org.example.ink.plist.lockfile", 3);
    add("Preferences/org.example.ink", 3);
    add("Preferences/my.org.example.ink.plist", 3);
    add("Preferences/Org.Example.Ink.helper.plist", 3);
    add("Preferences/.org.example.ink.plist", 3);
    add("Preferences/ByHost/org.example.ink.helper.plist", 3);
    EXPECT_THAT(scan(), IsEmpty());
}

TEST_F(AppLeftoversScannerTests, aGroupContainerIsFoundByTheIdentifierAnywhereInItsName)
{
    add("Group Containers/ABCDE12345.org.example.ink/data", 4);
    add("Group Containers/group.org.example.ink.shared/data", 3);
    add("Group Containers/org.example.ink/data", 2);
    add("Group Containers/xorg.example.inkling", 1);
    add("Group Containers/.org.example.ink/data", 9);
    add("Group Containers/ORG.EXAMPLE.INK/data", 9);
    EXPECT_THAT(scan(), ElementsAre("~/Library/Group Containers/ABCDE12345.org.example.ink, 4, Container",
                                    "~/Library/Group Containers/group.org.example.ink.shared, 3, Container",
                                    "~/Library/Group Containers/org.example.ink, 2, Container",
                                    "~/Library/Group Containers/xorg.example.inkling, 1, Container"));
}

TEST_F(AppLeftoversScannerTests, aNameThatIsNotUtf8IsFoundAndMeasured)
{
    add("Group Containers/\xFF.org.example.ink/data", 4);
    EXPECT_THAT(scan(), ElementsAre("~/Library/Group Containers/\xFF.org.example.ink, 4, Container"));
}

TEST_F(AppLeftoversScannerTests, anEmptyNameListsTheWholeSupportFolder)
{
    add("Application Support/Pencil/data", 5);
    EXPECT_THAT(scan(u"org.example.ink"_s, u""_s),
                ElementsAre("~/Library/Application Support, 5, App Support"));
}

TEST_F(AppLeftoversScannerTests, anEmptyIdentifierListsTheWholeFolders)
{
    add("Caches/a", 8);
    add("Application Support/Pencil/data", 7);
    add("Containers/a", 6);
    add("WebKit/a", 5);
    add("HTTPStorages/a", 4);
    add("Application Scripts/a", 3);
    EXPECT_THAT(scan(u""_s),
                ElementsAre("~/Library/Caches, 8, Cache", "~/Library/Application Support, 7, App Support",
                            "~/Library/Containers, 6, Container", "~/Library/WebKit, 5, Cache",
                            "~/Library/HTTPStorages, 4, Cache",
                            "~/Library/Application Scripts, 3, App Support"));
}

TEST_F(AppLeftoversScannerTests, anEmptyIdentifierMatchesEveryGroupContainerAndPreferencesFile)
{
    add("Group Containers/one/data", 4);
    add("Group Containers/two/data", 3);
    add("Preferences/org.example.pencil.plist", 2);
    add("Preferences/loginwindow.plist", 1);
    add("Preferences/notes.txt", 9);
    EXPECT_THAT(scan(u""_s), ElementsAre("~/Library/Group Containers/one, 4, Container",
                                         "~/Library/Group Containers/two, 3, Container",
                                         "~/Library/Preferences/org.example.pencil.plist, 2, Preferences",
                                         "~/Library/Preferences/loginwindow.plist, 1, Preferences"));
}

TEST_F(AppLeftoversScannerTests, anIdentifierWithANulFindsNoFolderThatIsNotItsOwn)
{
    add("Caches/data", 5);
    add("Application Support/Ink/data", 4);
    EXPECT_THAT(scan(QString(1, QChar()) + u"x"_s),
                ElementsAre("~/Library/Application Support/Ink, 4, App Support"));
}

TEST_F(AppLeftoversScannerTests, anIdentifierLeadsOutOfNoFolder)
{
    m_mac.writeFile("Users/mira/Documents/thesis", "x");
    m_mac.writeFile("Users/mira/Documents.plist", "x");
    add("Caches/inner/org.example.ink/data", 5);
    for (const QString& hostile : {u"../../Documents"_s, u"../Caches"_s, u"inner/org.example.ink"_s, u"/"_s,
                                   u"./"_s, u"."_s, u".."_s}) {
        EXPECT_THAT(scan(hostile), IsEmpty()) << hostile.toStdString();
        EXPECT_THAT(scan(u"org.example.ink"_s, hostile), IsEmpty()) << hostile.toStdString();
    }
}

TEST_F(AppLeftoversScannerTests, anIdentifierWithTwoDotsInItIsAName)
{
    add("Caches/org..ink/data", 5);
    add("Preferences/...plist", 4);
    EXPECT_THAT(scan(u"org..ink"_s), ElementsAre("~/Library/Caches/org..ink, 5, Cache"));
    EXPECT_THAT(scan(u".."_s), ElementsAre("~/Library/Preferences/...plist, 4, Preferences"));
}

TEST_F(AppLeftoversScannerTests, aLinkIsFollowedToSeeWhetherItExistsButNotMeasured)
{
    const auto link = [this](const QByteArray& target, const QByteArray& path) {
        std::filesystem::create_symlink(target.toStdString(),
                                        (m_mac.home().nativePath() + path).toStdString());
    };
    m_mac.writeFile("elsewhere/data", QByteArray(1000, 'x'));
    m_mac.makeFolder("Users/mira/Library/Caches");
    m_mac.makeFolder("Users/mira/Library/WebKit");
    m_mac.makeFolder("Users/mira/Library/Preferences");
    link("../../../../elsewhere", "/Library/Caches/org.example.ink");
    link("nowhere", "/Library/WebKit/org.example.ink");
    link("../../../../elsewhere/data", "/Library/Preferences/org.example.ink.plist");
    EXPECT_THAT(scan(), ElementsAre("~/Library/Preferences/org.example.ink.plist, 26, Preferences",
                                    "~/Library/Caches/org.example.ink, 0, Cache"));
}

TEST_F(AppLeftoversScannerTests, aPatternFolderThatIsNoFolderIsPassedOver)
{
    add("Group Containers", 3);
    add("Preferences", 3);
    add("Caches/org.example.ink", 2);
    EXPECT_THAT(scan(), ElementsAre("~/Library/Caches/org.example.ink, 2, Cache"));
}

TEST_F(AppLeftoversScannerTests, aSearchThatIsGivenUpMeasuresNoFurtherPlace)
{
    add("Caches/org.example.ink/data", 5);
    Cancellation cancellation;
    EXPECT_EQ(AppLeftoversScanner::scan(u"org.example.ink"_s, u"Ink"_s, cancellation).size(), 1);
    cancellation.quit();
    EXPECT_EQ(AppLeftoversScanner::scan(u"org.example.ink"_s, u"Ink"_s, cancellation).size(), 0);
}

TEST_F(AppLeftoversScannerTests, nothingIsChanged)
{
    const FileURL file = add("Caches/org.example.ink/data", 5);
    EXPECT_THAT(scan(), ElementsAre("~/Library/Caches/org.example.ink, 5, Cache"));
    EXPECT_EQ(TestMac::read(file), "xxxxx");
}

TEST_F(AppLeftoversScannerTests, eachScanGivesNewIds)
{
    add("Caches/org.example.ink/data", 5);
    const auto first = AppLeftoversScanner::scan(u"org.example.ink"_s, u"Ink"_s);
    const auto second = AppLeftoversScanner::scan(u"org.example.ink"_s, u"Ink"_s);
    ASSERT_EQ(first.size(), 1);
    ASSERT_EQ(second.size(), 1);
    EXPECT_NE(first.first().id, second.first().id);
}

} // namespace keelbright::testing
