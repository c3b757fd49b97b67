// Application scans during which memory runs out, at every single `operator new`.

#include "tests/apps/AppScannerTestCase.h"
#include "tests/memory/FailingAllocations.h"
#include "tests/support/BackgroundWork.h"

#include <gmock/gmock.h>
#include <string>
#include <tuple>

namespace keelbright::testing {
namespace {

using Apps = QList<AppInfo>;
using ::testing::UnorderedElementsAre;

class AppScanMemoryTest : public AppScannerTestCase
{
protected:
    AppScanMemoryTest()
    {
        addNumberedBundles(2);
        addBundle("Applications/App2.app", Entries{{"CFBundleIdentifier", "org.example.app"}},
                  PropertyListForm::binary);
        setMetadataTool(R"(printf 'kMDItemUseCount = 7\n')");
        std::ignore = scan(); // what is made once is there: threads, the watch of the helpers
        waitForBackgroundWork();
    }

    ~AppScanMemoryTest() override { waitForBackgroundWork(); }

    [[nodiscard]] static QStringList namesOf(const Apps& apps)
    {
        QStringList names;
        for (const AppInfo& app : apps)
            names.append(app.name);
        return names;
    }

    /// Scans with `count` failing allocations; false where it has ended without getting to the first of them.
    bool scanWithout(long first, long count)
    {
        QFuture<Apps> future;
        long failed = 0;
        {
            const FailingAllocations failing(first, count, FailingAllocations::Of::program);
            future = AppScanner::scan(m_mac.clock());
            waitForBackgroundWork();
            failed = failing.failed();
        }
        SCOPED_TRACE("allocation " + std::to_string(first));
        EXPECT_TRUE(future.isFinished());
        EXPECT_FALSE(future.isCanceled());
        if (future.resultCount() != 1) {
            ADD_FAILURE() << "the scan has " << future.resultCount() << " results";
            return false;
        }
        expectNothingWrong(future.result());
        return failed > 0;
    }

    static void expectNothingWrong(const Apps& apps)
    {
        const QStringList all = {QStringLiteral("App0"), QStringLiteral("App1"), QStringLiteral("App2")};
        const QStringList names = namesOf(apps);
        for (const QString& name : names) {
            EXPECT_TRUE(all.contains(name)) << name.toStdString();
            EXPECT_EQ(names.count(name), 1) << name.toStdString();
        }
        for (const AppInfo& app : apps)
            EXPECT_TRUE(app.useCount == 7 || app.useCount == 0) << app.useCount;
    }

    void expectTheNextScanToBeWhole() const
    {
        const Apps apps = scan();
        EXPECT_THAT(namesOf(apps), UnorderedElementsAre(QStringLiteral("App0"), QStringLiteral("App1"),
                                                        QStringLiteral("App2")));
        for (const AppInfo& app : apps)
            EXPECT_EQ(app.useCount, 7);
    }
};

} // namespace

TEST_F(AppScanMemoryTest, aScanEndsWhicheverAllocationFails)
{
    long allocations = 0;
    while (scanWithout(allocations, 1) && !HasFailure())
        ++allocations;
    EXPECT_GT(allocations, 50);
    RecordProperty("allocations", static_cast<int>(allocations));
    // No tool is still counted as running: a scan needs one of the 32 places for each application.
    expectTheNextScanToBeWhole();
}

TEST_F(AppScanMemoryTest, aScanEndsWithWhatItFoundWhereMemoryIsMissingForAWhile)
{
    constexpr long step = 11;
    constexpr long failures = 7;
    for (long first = 0; scanWithout(first, failures) && !HasFailure(); first += step) {
    }
    expectTheNextScanToBeWhole();
}

} // namespace keelbright::testing
