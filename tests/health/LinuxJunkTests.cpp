#include "KeelbrightCore/health/HealthScoreService.h"
#include "KeelbrightCore/health/JunkScanner.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "tests/support/Printing.h"
#include "tests/support/TestLinux.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The junk scan of homes that are no Mac's.
class LinuxJunkTests : public ::testing::Test
{
protected:
    using Desktop = MadeUpLinux::Desktop;

    static QList<JunkCategory> scan() { return JunkScanner::scan().result(); }

    /// The category; without items where the scan gives none.
    static JunkCategory category(QLatin1StringView id)
    {
        const QList<JunkCategory> found = scan();
        const auto place = std::ranges::find(found, QString(id), &JunkCategory::id);
        return place == found.end() ? JunkCategory() : *place;
    }

    /// Below the home, as "path size", in their order.
    [[nodiscard]] QStringList lines(QLatin1StringView id) const
    {
        QStringList lines;
        for (const JunkItem& item : category(id).items)
            lines.append(pathOf(item) + u' ' + QString::number(item.sizeBytes));
        return lines;
    }

    [[nodiscard]] QString pathOf(const JunkItem& item) const
    {
        const QString start = linuxMachine.home().path() + u'/';
        const QString path = item.url.path();
        return path.startsWith(start) ? path.sliced(start.size()) : path;
    }

    void write(const QByteArray& path, qint64 bytes) const
    {
        linuxMachine.files().noise("home/mira/" + path, bytes);
    }

    TestLinux linuxMachine;
};

} // namespace

TEST_F(LinuxJunkTests, anEmptyHomeIsAllClean)
{
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(LinuxJunkTests, everyCategoryKeepsItsTitleAndItsIcon)
{
    write(".cache/thumbnails/a.png", 600);
    write(".xsession-errors", 500);
    write(".npm/_cacache/a", 400);
    write(".cache/mozilla/firefox/a/b", 200);
    write(".local/share/Trash/files/letter.odt", 100);
    QStringList found;
    for (const JunkCategory& category : scan()) {
        found.append(u"%1|%2|%3|%4"_s.arg(category.id, category.title, category.icon,
                                          QString::number(category.totalBytes())));
    }
    EXPECT_EQ(found, (QStringList{
                         u"userCaches|User Caches|arrow.clockwise.circle.fill|600"_s,
                         u"userLogs|Log Files|doc.text.fill|500"_s,
                         u"xcode|Xcode & Simulators|hammer.fill|400"_s,
                         u"browserCache|Browser Caches|globe|200"_s,
                         u"trash|Trash|trash.fill|100"_s,
                     }));
}

TEST_F(LinuxJunkTests, theEntriesOfTheCacheFolderAreItemsAlsoWhereTheyAreFiles)
{
    linuxMachine.madeUp(Desktop::plasma, MadeUpLinux::Language::german).addCaches();
    EXPECT_EQ(lines(JunkCategoryID::userCaches),
              (QStringList{u".cache/mesa_shader_cache 1300000"_s, u".cache/icon-cache.kcache 1000000"_s,
                           u".cache/gstreamer-1.0 900000"_s, u".cache/ksycoca5_de_abc 500000"_s,
                           u".cache/plasmashell 80000"_s, u".cache/fontconfig 40000"_s}));
}

TEST_F(LinuxJunkTests, gnomesCachesAreFoundToo)
{
    linuxMachine.madeUp(Desktop::gnome).addCaches();
    EXPECT_EQ(lines(JunkCategoryID::userCaches),
              (QStringList{u".cache/gnome-software 2000000"_s, u".cache/mesa_shader_cache 1300000"_s,
                           u".cache/gstreamer-1.0 900000"_s, u".cache/thumbnails 60000"_s,
                           u".cache/fontconfig 40000"_s,
                           u".cache/event-sound-cache.tdb.0a1b2c.x86_64-pc-linux-gnu 12000"_s}));
}

TEST_F(LinuxJunkTests, theCacheFolderLiesWhereTheEnvironmentPutsIt)
{
    const EnvironmentVariable cacheHome("XDG_CACHE_HOME");
    cacheHome.set(linuxMachine.root().appendingNative("scratch").nativePath());
    linuxMachine.files().noise("scratch/thumbnails/a.png", 10);
    write(".cache/thumbnails/a.png", 20);
    EXPECT_EQ(category(JunkCategoryID::userCaches).totalBytes(), 10);
}

TEST_F(LinuxJunkTests, aCacheFolderThatHoldsTheHomeIsNotTakenApart)
{
    const EnvironmentVariable cacheHome("XDG_CACHE_HOME");
    write("Documents/novel.odt", 1'000);
    for (const FileURL& folder :
         {linuxMachine.home(), linuxMachine.home().deletingLastPathComponent(), FileURL()}) {
        cacheHome.set(folder.nativePath());
        EXPECT_EQ(scan(), QList<JunkCategory>()) << folder.nativePath().toStdString();
    }
}

TEST_F(LinuxJunkTests, aFolderOfStatesThatHoldsTheHomeIsNotSearchedForLogs)
{
    const EnvironmentVariable stateHome("XDG_STATE_HOME");
    stateHome.set(linuxMachine.home().nativePath());
    write("Projects/logs/march.txt", 1'000);
    write("captain.log", 1'000);
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(LinuxJunkTests, aCacheFolderThatHoldsSettingsOrDataIsNotTakenApart)
{
    const EnvironmentVariable cacheHome("XDG_CACHE_HOME");
    write(".config/novel/settings.ini", 1'000);
    write(".local/share/novel/chapters.db", 1'000);
    write(".local/state/novel/history", 1'000);
    for (const QByteArray folder : {".config", ".local", ".local/share", ".local/state"}) {
        cacheHome.set(linuxMachine.atHome(folder).nativePath());
        EXPECT_EQ(scan(), QList<JunkCategory>()) << folder.toStdString();
        EXPECT_EQ(HealthScoreService::compute(std::nullopt).result().junkEstimateBytes, 0)
            << folder.toStdString();
    }
}

TEST_F(LinuxJunkTests, theUsualCacheFolderIsNotTakenApartWhereItHoldsData)
{
    const EnvironmentVariable configurationHome("XDG_CONFIG_HOME");
    configurationHome.set(linuxMachine.atHome(".cache/settings").nativePath());
    write(".cache/settings/novel.ini", 1'000);
    write(".cache/pip/http/a", 10);
    EXPECT_EQ(lines(JunkCategoryID::xcode), QStringList{u".cache/pip 10"_s});
    EXPECT_EQ(scan().size(), 1);
}

TEST_F(LinuxJunkTests, aFolderOfStatesThatHoldsSettingsIsNotSearchedForLogs)
{
    const EnvironmentVariable stateHome("XDG_STATE_HOME");
    stateHome.set(linuxMachine.atHome(".config").nativePath());
    write(".config/diary.log", 1'000);
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(LinuxJunkTests, aLinkAmongTheCachesIsNoItem)
{
    write("Documents/novel.odt", 1'000);
    linuxMachine.files().link("home/mira/.cache/link", "../Documents");
    EXPECT_EQ(scan(), QList<JunkCategory>());
}

TEST_F(LinuxJunkTests, theCachesOfBrowsersAreListedOnceAndNeverAProfile)
{
    linuxMachine.madeUp(Desktop::gnome).addBrowsers();
    write(".cache/mozilla/other/a", 5);
    write(".cache/thumbnails/a", 3);
    EXPECT_EQ(lines(JunkCategoryID::browserCache),
              (QStringList{u".cache/mozilla/firefox 200000"_s, u".cache/chromium 100000"_s,
                           u".var/app/org.mozilla.firefox/cache/mozilla/firefox 200000"_s,
                           u"snap/firefox/common/.cache/mozilla/firefox 200000"_s,
                           u".var/app/org.chromium.Chromium/cache/chromium 100000"_s,
                           u"snap/chromium/common/.cache/chromium 100000"_s}));
    EXPECT_EQ(lines(JunkCategoryID::userCaches),
              (QStringList{u".cache/mozilla/other 5"_s, u".cache/thumbnails 3"_s}));
}

TEST_F(LinuxJunkTests, allTheBrowsersAreKnown)
{
    const QStringList expected{u".cache/mozilla/firefox 9"_s,
                               u".cache/chromium 8"_s,
                               u".cache/google-chrome 7"_s,
                               u".cache/BraveSoftware/Brave-Browser 6"_s,
                               u".cache/BraveSoftware/Brave-Browser-Beta 6"_s,
                               u".cache/BraveSoftware/Brave-Browser-Nightly 6"_s,
                               u".cache/microsoft-edge 5"_s,
                               u".cache/vivaldi 4"_s,
                               u".var/app/com.google.Chrome/cache/google-chrome 3"_s,
                               u".var/app/com.brave.Browser/cache/BraveSoftware/Brave-Browser 3"_s,
                               u"snap/brave/current/.cache/BraveSoftware/Brave-Browser 2"_s,
                               u".var/app/com.microsoft.Edge/cache/microsoft-edge 2"_s,
                               u".var/app/com.vivaldi.Vivaldi/cache/vivaldi 1"_s};
    for (const QString& line : expected)
        write(line.section(u' ', 0, 0).toUtf8() + "/file", line.section(u' ', 1).toLongLong());
    EXPECT_EQ(lines(JunkCategoryID::browserCache), expected);
}

TEST_F(LinuxJunkTests, aCacheOfARunningBrowserIsMarked)
{
    const MadeUpLinux home = linuxMachine.madeUp(Desktop::gnome);
    home.addBrowsers();
    home.addProcesses({{"/usr/bin/gnome-shell"},
                       {"/usr/lib/firefox-esr/firefox-esr", "--new-window"},
                       {"/opt/google/chrome/chrome"},
                       {"/usr/bin/nano", "/usr/lib/chromium/chromium"}});
    QStringList inUse;
    for (const JunkItem& item : category(JunkCategoryID::browserCache).items)
        inUse.append(item.inUseBy);
    EXPECT_EQ(inUse, (QStringList{u"Firefox"_s, {}, u"Firefox"_s, u"Firefox"_s, {}, {}}));
}

TEST_F(LinuxJunkTests, whatDevelopingLeavesStandsUnderItsOwnKindAndOnce)
{
    linuxMachine.madeUp(Desktop::windowManager).addDeveloperCaches();
    EXPECT_EQ(
        lines(JunkCategoryID::xcode),
        (QStringList{u".npm/_cacache 70000"_s, u".cargo/registry/cache 60000"_s, u".gradle/caches 50000"_s,
                     u".cache/pip 40000"_s, u".cache/go-build 30000"_s, u".cache/ccache 20000"_s}));
    EXPECT_EQ(scan().size(), 1);
}

TEST_F(LinuxJunkTests, logsAreFoundAndWhatProgramsStillNeedIsNot)
{
    linuxMachine.madeUp(Desktop::plasma).addLogs();
    EXPECT_EQ(lines(JunkCategoryID::userLogs),
              (QStringList{u".local/share/xorg/Xorg.0.log.old 31000"_s,
                           u".local/share/xorg/Xorg.0.log 30000"_s, u".xsession-errors 9000"_s,
                           u".local/state/nvim/log 7000"_s, u".local/state/syncthing/logs 6000"_s}));
    EXPECT_EQ(scan().size(), 1);
}

TEST_F(LinuxJunkTests, aRotatedLogIsALog)
{
    for (const QByteArray name : {"a.log", "b.LOG", "c.log.1", "d.log.gz", "catalog", "login", "blog.db"})
        write(".local/state/program/" + name, 10);
    QStringList names;
    for (const JunkItem& item : category(JunkCategoryID::userLogs).items)
        names.append(item.name());
    names.sort();
    EXPECT_EQ(names, (QStringList{u"a.log"_s, u"b.LOG"_s, u"c.log.1"_s, u"d.log.gz"_s}));
}

TEST_F(LinuxJunkTests, theTrashOfTheHomeAndOfEachVolumeIsListed)
{
    linuxMachine.madeUp(Desktop::gnome).addTrash();
    const FileURL drive = linuxMachine.root().appendingNative("media/mira/Stick");
    const FileURL other = linuxMachine.root().appendingNative("media/mira/Shared");
    linuxMachine.fileManager().setMountedVolumes({{drive, u"Stick"_s}, {other, u"Shared"_s}});
    const QByteArray user = QByteArray::number(::getuid());
    linuxMachine.files().noise("media/mira/Stick/.Trash-" + user + "/files/film.mkv", 7'000);
    linuxMachine.files().noise("media/mira/Stick/.Trash-99999/files/not mine.mkv", 9'000);
    linuxMachine.files().noise("media/mira/Shared/.Trash/" + user + "/files/song.ogg", 8'000);
    std::filesystem::permissions(other.appendingNative(".Trash").nativePath().toStdString(),
                                 std::filesystem::perms(01777));
    QStringList names;
    for (const JunkItem& item : category(JunkCategoryID::trash).items)
        names.append(item.name());
    EXPECT_EQ(names, (QStringList{u"Drafts"_s, u"Old letter.odt"_s, u"song.ogg"_s, u"film.mkv"_s}));
}

TEST_F(LinuxJunkTests, theTrashOfADiskThatIsMountedAnywhereElseIsListed)
{
    linuxMachine.fileManager().setOtherVolumeTops(
        {linuxMachine.root(), linuxMachine.root().appendingNative("srv/photos")});
    const QByteArray user = QByteArray::number(::getuid());
    linuxMachine.files().noise(".Trash-" + user + "/files/core", 7'000);
    linuxMachine.files().noise("srv/photos/.Trash-" + user + "/files/blurred.jpg", 8'000);
    QStringList names;
    for (const JunkItem& item : category(JunkCategoryID::trash).items)
        names.append(item.name());
    EXPECT_EQ(names, (QStringList{u"blurred.jpg"_s, u"core"_s}));
}

TEST_F(LinuxJunkTests, whatLiesInTheTrashIsLeftToTheDesktopsOwnEmptying)
{
    linuxMachine.madeUp(Desktop::gnome).addTrash();
    const JunkItem item = category(JunkCategoryID::trash).items.first();
    const auto moved = linuxMachine.fileManager().trashItem(item.url);
    ASSERT_FALSE(moved);
    EXPECT_EQ(moved.error().reason, FileError::Reason::alreadyInTrash);
}

TEST_F(LinuxJunkTests, theHealthScoresEstimateIsOfTheSamePlacesAndCountsNothingTwice)
{
    write(".cache/thumbnails/a", 1'000);
    write(".cache/mozilla/firefox/a", 2'000);
    write(".cache/pip/a", 4'000);
    write(".npm/_cacache/a", 8'000);
    write(".cargo/registry/cache/a", 16'000);
    write(".gradle/caches/a", 32'000);
    write(".xsession-errors", 64'000);
    write(".local/share/xorg/Xorg.0.log", 128'000);
    write(".local/share/Trash/files/a", 256'000);
    write("Documents/novel.odt", 512'000);
    EXPECT_EQ(HealthScoreService::compute(std::nullopt, linuxMachine.clock()).result().junkEstimateBytes,
              255'000);
}

TEST_F(LinuxJunkTests, everythingElseThatIsListedCanGoToTheTrash)
{
    const MadeUpLinux home = linuxMachine.madeUp(Desktop::plasma);
    home.addCaches();
    home.addBrowsers();
    home.addDeveloperCaches();
    home.addLogs();
    for (const JunkCategory& found : scan()) {
        for (const JunkItem& item : found.items) {
            const auto moved = linuxMachine.fileManager().trashItem(item.url);
            EXPECT_TRUE(moved) << item.url.nativePath().toStdString();
        }
    }
    const QList<JunkCategory> left = scan();
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(left.first().id, JunkCategoryID::trash);
}

} // namespace keelbright::testing
