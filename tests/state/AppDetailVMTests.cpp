#include "Keelbright/state/AppDetailVM.h"

#include "KeelbrightCore/records/ActivityStore.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/WatchedTrash.h"

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppDetailVMTest : public ::testing::Test
{
protected:
    AppDetailVMTest() { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); }

    ~AppDetailVMTest() override { waitForBackgroundWork(); }

    [[nodiscard]] AppInfo ink() const
    {
        return AppInfo({.name = u"Ink"_s,
                        .bundleID = u"org.example.ink"_s,
                        .url = mac.root().appending(u"Applications/Ink.app"_s)},
                       mac.clock()());
    }

    [[nodiscard]] std::unique_ptr<AppDetailVM> makeModel()
    {
        mac.writeFile("Applications/Ink.app/Contents/Info.plist", "x");
        return std::make_unique<AppDetailVM>(ink(), activityStore, lookup(), mac.clock());
    }

    [[nodiscard]] AppLookup lookup() const
    {
        return [origin = server.origin()](const QString& name) {
            return iTunesLookupService::lookup(name, {.origin = origin});
        };
    }

    /// Below the home's Library.
    FileURL addLeftover(const QByteArray& path, qsizetype bytes) const
    {
        return mac.writeFile("Users/mira/Library/" + path, QByteArray(bytes, 'x'));
    }

    void addThreeLeftovers() const
    {
        addLeftover("Caches/org.example.ink/data", 30);
        addLeftover("Application Support/Ink/data", 20);
        addLeftover("Preferences/org.example.ink.plist", 10);
    }

    static void load(AppDetailVM& model)
    {
        model.loadLeftovers();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isLoadingLeftovers(); }, 20'000));
    }

    static void fetch(AppDetailVM& model)
    {
        model.fetchDescription();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isLoadingiTunes(); }, 20'000));
    }

    [[nodiscard]] static QStringList namesOf(const QList<AppLeftover>& leftovers)
    {
        QStringList names;
        for (const AppLeftover& leftover : leftovers)
            names.append(leftover.url.lastPathComponent());
        return names;
    }

    [[nodiscard]] bool exists(const FileURL& url) const { return fileManager.fileExists(url).exists; }

    [[nodiscard]] FileURL groupContainers() const
    {
        return mac.home().appending(u"Library/Group Containers"_s);
    }

    int argc = 1;
    char program[5] = "test";
    char* argv[1] = {program};
    QCoreApplication application{argc, argv};
    TestMac mac;
    WatchedTrash fileManager{mac.root()};
    FileManagerGuard guard{fileManager};
    ActivityStore activityStore{fileManager.applicationSupportDirectory()};
    LoopbackServer server;
};

} // namespace

TEST_F(AppDetailVMTest, aNewModelIsEmptyAndStartsNothing)
{
    const auto model = makeModel();
    EXPECT_EQ(model->app().name, u"Ink"_s);
    EXPECT_TRUE(model->leftovers().isEmpty());
    EXPECT_EQ(model->totalLeftoverBytes(), 0);
    EXPECT_FALSE(model->isLoadingLeftovers());
    EXPECT_FALSE(model->itunesInfo().has_value());
    EXPECT_FALSE(model->isLoadingiTunes());
    EXPECT_FALSE(model->itunesLookedUp());
    EXPECT_FALSE(model->showDeleteConfirm());
}

TEST_F(AppDetailVMTest, theLeftoversAreFoundInTheBackground)
{
    addThreeLeftovers();
    const auto model = makeModel();
    fileManager.holdNextLookAt(groupContainers());
    model->loadLeftovers();
    EXPECT_TRUE(model->isLoadingLeftovers());
    ASSERT_TRUE(fileManager.waitUntilHeld());
    QCoreApplication::processEvents();
    EXPECT_TRUE(model->isLoadingLeftovers());
    EXPECT_TRUE(model->leftovers().isEmpty());
    fileManager.letGo();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model->isLoadingLeftovers(); }, 20'000));
    EXPECT_EQ(namesOf(model->leftovers()),
              (QStringList{u"org.example.ink"_s, u"Ink"_s, u"org.example.ink.plist"_s}));
    EXPECT_EQ(model->totalLeftoverBytes(), 60);
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST_F(AppDetailVMTest, theAppStoreIsAskedOnlyWhenTheUserWantsIt)
{
    server.setAnswer(LoopbackAnswer::http(R"({"results": [{"trackName": "Ink", "description": "Draws."}]})"));
    const auto model = makeModel();
    model->fetchDescription();
    EXPECT_TRUE(model->isLoadingiTunes());
    EXPECT_FALSE(model->itunesLookedUp());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model->isLoadingiTunes(); }, 20'000));
    EXPECT_TRUE(model->itunesLookedUp());
    ASSERT_TRUE(model->itunesInfo().has_value());
    EXPECT_EQ(model->itunesInfo()->description, u"Draws."_s);
    EXPECT_EQ(server.requestLines(),
              QList<QByteArray>{"GET /search?term=Ink&entity=macSoftware&limit=5&country=us HTTP/1.1"});
}

TEST_F(AppDetailVMTest, whatTheAppStoreDoesNotKnowHasBeenLookedUpAllTheSame)
{
    server.setAnswer(LoopbackAnswer::http(R"({"results": []})"));
    const auto model = makeModel();
    fetch(*model);
    EXPECT_TRUE(model->itunesLookedUp());
    EXPECT_FALSE(model->itunesInfo().has_value());
}

TEST_F(AppDetailVMTest, removingMovesTheBundleAndThenItsLeftoversInTheirOrder)
{
    addThreeLeftovers();
    const auto model = makeModel();
    load(*model);
    QList<QUuid> removed;
    QObject::connect(model.get(), &AppDetailVM::removed, model.get(),
                     [&](const AppInfo& app) { removed.append(app.id); });
    model->removeApp();
    EXPECT_EQ(fileManager.asked,
              (QStringList{u"Ink.app"_s, u"org.example.ink"_s, u"Ink"_s, u"org.example.ink.plist"_s}));
    EXPECT_FALSE(exists(model->app().url));
    EXPECT_TRUE(exists(mac.home().appending(u".local/share/Trash/files/Ink.app"_s)));
    EXPECT_TRUE(exists(mac.home().appending(u".local/share/Trash/files/org.example.ink.plist"_s)));
    EXPECT_EQ(removed, QList<QUuid>{model->app().id});
}

TEST_F(AppDetailVMTest, aRemovalIsLogged)
{
    addThreeLeftovers();
    const auto model = makeModel();
    load(*model);
    model->removeApp();
    const QList<ActivityEntry> log = activityStore.load();
    ASSERT_EQ(log.size(), 1);
    EXPECT_FALSE(log.first().id.isNull());
    EXPECT_EQ(log.first().timestamp, mac.clock()());
    EXPECT_EQ(log.first().kind, ActivityEntry::Kind::appRemove);
    EXPECT_EQ(log.first().title, u"Ink removed"_s);
    EXPECT_EQ(log.first().detail, u"App + 3 leftover files moved to Trash"_s);
    EXPECT_EQ(log.first().bytesAffected, 60);
    EXPECT_EQ(log.first().itemCount, 4);
}

TEST_F(AppDetailVMTest, oneLeftoverIsWrittenInTheSingular)
{
    addLeftover("Caches/org.example.ink/data", 30);
    const auto model = makeModel();
    load(*model);
    model->removeApp();
    EXPECT_EQ(activityStore.load().first().detail, u"App + 1 leftover file moved to Trash"_s);
    EXPECT_EQ(activityStore.load().first().itemCount, 2);
}

TEST_F(AppDetailVMTest, removingWhileTheLeftoversAreStillLoadingMovesTheOnesFoundSoFar)
{
    addThreeLeftovers();
    const auto model = makeModel();
    fileManager.holdNextLookAt(groupContainers());
    model->loadLeftovers();
    ASSERT_TRUE(fileManager.waitUntilHeld());
    model->removeApp();
    fileManager.letGo();
    EXPECT_EQ(fileManager.asked, QStringList{u"Ink.app"_s});
    const ActivityEntry entry = activityStore.load().first();
    EXPECT_EQ(entry.detail, u"App + 0 leftover files moved to Trash"_s);
    EXPECT_EQ(entry.bytesAffected, 0);
    EXPECT_EQ(entry.itemCount, 1);
}

TEST_F(AppDetailVMTest, aRefusedMoveIsPassedOverInSilenceAndLoggedAllTheSame)
{
    addThreeLeftovers();
    const auto model = makeModel();
    load(*model);
    const QSignalSpy removed(model.get(), &AppDetailVM::removed);
    fileManager.refused = {u"Ink.app"_s, u"org.example.ink"_s};
    model->removeApp();
    EXPECT_TRUE(exists(model->app().url));
    EXPECT_TRUE(exists(model->leftovers().first().url));
    EXPECT_FALSE(exists(model->leftovers().last().url));
    EXPECT_EQ(activityStore.load().first().detail, u"App + 3 leftover files moved to Trash"_s);
    EXPECT_EQ(activityStore.load().first().bytesAffected, 60);
    EXPECT_EQ(removed.size(), 1);
}

TEST_F(AppDetailVMTest, aRemovalSaysWhatItHasMoved)
{
    addThreeLeftovers();
    const auto model = makeModel();
    load(*model);
    TrashedItems moved;
    int spoken = 0;
    QObject::connect(model.get(), &AppDetailVM::trashed, model.get(), [&](const UndoableMoves& done) {
        moved = std::get<TrashedItems>(done);
        ++spoken;
    });
    fileManager.refused = {model->leftovers().first().url.lastPathComponent()};
    model->removeApp();
    EXPECT_EQ(spoken, 1);
    EXPECT_TRUE(moved.isRemoval);
    ASSERT_EQ(moved.items.size(), 3);
    EXPECT_EQ(moved.items.at(0).origin, model->app().url);
    EXPECT_EQ(moved.items.at(1).origin, model->leftovers().at(1).url);
    EXPECT_EQ(moved.items.at(2).origin, model->leftovers().at(2).url);
}

TEST_F(AppDetailVMTest, removingTheAppOnlyLeavesItsFiles)
{
    addThreeLeftovers();
    const auto model = makeModel();
    load(*model);
    const QSignalSpy removed(model.get(), &AppDetailVM::removed);
    model->removeAppOnly();
    EXPECT_EQ(fileManager.asked, QStringList{u"Ink.app"_s});
    EXPECT_FALSE(exists(model->app().url));
    EXPECT_TRUE(exists(model->leftovers().first().url));
    const QList<ActivityEntry> log = activityStore.load();
    ASSERT_EQ(log.size(), 1);
    EXPECT_EQ(log.first().kind, ActivityEntry::Kind::appRemove);
    EXPECT_EQ(log.first().title, u"Ink removed"_s);
    EXPECT_EQ(log.first().detail, u"App bundle moved to Trash"_s);
    EXPECT_EQ(log.first().bytesAffected, 0);
    EXPECT_EQ(log.first().itemCount, 1);
    EXPECT_EQ(removed.size(), 1);
}

TEST_F(AppDetailVMTest, aRefusedAppIsLoggedAsRemovedAlone)
{
    const auto model = makeModel();
    fileManager.refused = {u"Ink.app"_s};
    model->removeAppOnly();
    EXPECT_TRUE(exists(model->app().url));
    EXPECT_EQ(activityStore.load().first().detail, u"App bundle moved to Trash"_s);
}

TEST_F(AppDetailVMTest, aHostileIdentifierHasNothingElseOfTheHomeMoved)
{
    const FileURL thesis = mac.writeFile("Users/mira/Documents/thesis", "x");
    addLeftover("Caches/other", 1);
    AppInfo hostile = ink();
    hostile.bundleID = u"../../Documents"_s;
    hostile.name = u".."_s;
    AppDetailVM model(hostile, activityStore, lookup(), mac.clock());
    load(model);
    EXPECT_TRUE(model.leftovers().isEmpty());
    model.removeApp();
    EXPECT_TRUE(exists(thesis));
}

TEST_F(AppDetailVMTest, theQuestionIsTheScreensToClear)
{
    const auto model = makeModel();
    model->setShowDeleteConfirm(true);
    EXPECT_TRUE(model->showDeleteConfirm());
    model->setShowDeleteConfirm(false);
    EXPECT_FALSE(model->showDeleteConfirm());
}

TEST_F(AppDetailVMTest, closedInTheMiddleOfTheSearchItReceivesNothing)
{
    addThreeLeftovers();
    auto model = makeModel();
    const QSignalSpy delivered(model.get(), &AppDetailVM::leftoversChanged);
    fileManager.holdNextLookAt(groupContainers());
    model->loadLeftovers();
    ASSERT_TRUE(fileManager.waitUntilHeld());
    model.reset();
    fileManager.letGo();
    waitForBackgroundWork();
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered.size(), 0);
}

TEST_F(AppDetailVMTest, closedInTheMiddleOfARequestItEndsIt)
{
    server.setAnswer({.pieces = {"HTTP/1.1 200 OK\r\n"}, .closes = false});
    QFuture<std::optional<iTunesAppInfo>> request;
    auto model = std::make_unique<AppDetailVM>(ink(), activityStore,
                                               [&](const QString& name) { return request = lookup()(name); });
    model->fetchDescription();
    ASSERT_TRUE(QTest::qWaitFor([&] { return server.requests().size() == 1; }, 20'000));
    model.reset();
    EXPECT_TRUE(request.isCanceled());
    ASSERT_TRUE(QTest::qWaitFor([&] { return request.isFinished(); }, 20'000));
}

TEST_F(AppDetailVMTest, anApplicationWithoutNameAndIdentifierTakesNoFolderOfTheMachineAlong)
{
    addLeftover("Application Support/Other/data", 20);
    addLeftover("Caches/org.example.other/data", 10);
    addLeftover("Containers/org.example.other/data", 10);
    const FileURL bundle =
        mac.writeFile("Applications/Nameless.app/Contents/Info.plist", "x").deletingLastPathComponent();
    AppDetailVM model(AppInfo({.name = QString(), .bundleID = QString(), .url = bundle}, mac.clock()()),
                      activityStore, lookup(), mac.clock());
    load(model);
    EXPECT_EQ(namesOf(model.leftovers()).size(), 4) << "Application Support is listed twice";
    model.removeApp();
    EXPECT_FALSE(exists(bundle));
    for (const char* folder : {"Application Support/Other/data", "Caches/org.example.other/data",
                               "Containers/org.example.other/data"})
        EXPECT_TRUE(exists(mac.home().appendingNative(QByteArray("Library/") + folder))) << folder;
}

} // namespace keelbright::testing
