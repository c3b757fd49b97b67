#include "Keelbright/state/AppDetailVM.h"
#include "Keelbright/state/FolderLookup.h"
#include "tests/state/AppStateFixture.h"
#include "tests/support/BackgroundWork.h"

#include <QSemaphore>
#include <QTest>
#include <vector>

// What small look-ups on a place that does not answer keep from others: nothing.

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The test's machine, on which whoever looks at a place that does not answer waits until it does.
class UnansweringPlaces : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    [[nodiscard]] FileExistence fileExists(const FileURL& url) const override
    {
        if (url.nativePath().contains("/Library/") || url.nativePath().contains("/Lost/")) {
            m_reached.release();
            m_answer.acquire();
            m_answer.release();
        }
        return SandboxFileManager::fileExists(url);
    }

    void waitForLookups(int count) { ASSERT_TRUE(m_reached.tryAcquire(count, 20'000)); }

    void answer() { m_answer.release(); }

private:
    mutable QSemaphore m_reached;
    mutable QSemaphore m_answer;
};

class HungLookupTest : public AppStateFixture
{
protected:
    HungLookupTest()
    {
        mac.writeFile("Users/mira/Documents/a.txt", "12345");
        mac.makeFolder("Volumes/Anchor");
        state = makeState();
        state->setSelectedDestination(drive());
    }

    ~HungLookupTest() override
    {
        places.answer();
        waitForBackgroundWork();
    }

    void expectABackupToRun()
    {
        ASSERT_TRUE(state->confirmBackup());
        ASSERT_TRUE(QTest::qWaitFor([this] { return !state->engine().isRunning(); }, 25'000));
        ASSERT_TRUE(state->engine().lastReport().has_value());
        EXPECT_EQ(state->engine().lastReport()->filesCopied, 1);
    }

    /// More than any pool has threads.
    static constexpr int many = 80;

    UnansweringPlaces places{mac.root()};
    FileManagerGuard inPlace{places};
    std::unique_ptr<AppState> state;
};

} // namespace

TEST_F(HungLookupTest, searchesForLeftoversHoldNobodyElse)
{
    std::vector<std::unique_ptr<AppDetailVM>> models;
    for (int number = 0; number < many; ++number) {
        const AppInfo app({.name = u"Ink"_s, .bundleID = u"org.example.ink"_s, .url = FileURL()},
                          mac.clock()());
        models.push_back(std::make_unique<AppDetailVM>(app, activityStore, AppLookup(), mac.clock()));
        models.back()->loadLeftovers();
    }
    places.waitForLookups(many);
    expectABackupToRun();
    // A closed panel's search ends as soon as its place answers.
    models.clear();
}

TEST_F(HungLookupTest, looksForFoldersHoldNobodyElse)
{
    std::vector<std::unique_ptr<FolderLookup>> lookups;
    for (int number = 0; number < many; ++number) {
        lookups.push_back(std::make_unique<FolderLookup>());
        EXPECT_EQ(lookups.back()->isFolder(QUuid::createUuid(), mac.root().appending(u"Lost/place"_s)),
                  std::nullopt);
    }
    turnEventLoopOnce();
    places.waitForLookups(many);
    expectABackupToRun();
}

TEST_F(HungLookupTest, aSecondSearchOfAPanelGivesTheFirstUp)
{
    const AppInfo app({.name = u"Ink"_s, .bundleID = u"org.example.ink"_s, .url = FileURL()}, mac.clock()());
    mac.writeFile("Users/mira/Library/Caches/org.example.ink/data", "12345");
    AppDetailVM model(app, activityStore, AppLookup(), mac.clock());
    int results = 0;
    QObject::connect(&model, &AppDetailVM::leftoversChanged, [&results] { ++results; });
    model.loadLeftovers();
    model.loadLeftovers();
    places.waitForLookups(2);
    places.answer();
    ASSERT_TRUE(QTest::qWaitFor([&model] { return !model.isLoadingLeftovers(); }, 25'000));
    waitForBackgroundWork();
    turnEventLoopOnce();
    EXPECT_EQ(results, 1);
    EXPECT_EQ(model.leftovers().size(), 1);
}

} // namespace keelbright::testing
