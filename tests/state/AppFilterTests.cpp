#include "Keelbright/state/AppFilter.h"

#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"
#include "tests/support/WorkTimer.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppFilterTests : public ::testing::Test
{
protected:
    /// Used that many days ago, or never.
    void add(const QString& name, std::optional<int> usedDaysAgo, qint64 useCount, int addedDaysAgo = 400)
    {
        const QDateTime now = mac.clock()();
        m_apps.append(
            AppInfo({.name = name,
                     .bundleID = u"org.example."_s + name.toLower(),
                     .lastUsedDate = usedDaysAgo ? std::optional(now.addDays(-*usedDaysAgo)) : std::nullopt,
                     .useCount = useCount,
                     .dateAdded = now.addDays(-addedDaysAgo)},
                    now));
    }

    /// One of each category, and a second forgotten one.
    void addOneOfEach()
    {
        add(u"Daily"_s, 1, 300);
        add(u"Seasonal"_s, 100, 200);
        add(u"Occasional"_s, 20, 5);
        add(u"Forgotten"_s, 200, 2);
        add(u"New"_s, 2, 9, 5);
        add(u"Unknown"_s, std::nullopt, 7);
        add(u"Never"_s, std::nullopt, 0);
    }

    [[nodiscard]] QStringList names(const AppFilter& filter) const
    {
        QStringList names;
        for (const AppInfo& app : AppIndex(m_apps).filteredApps(filter))
            names.append(app.name);
        return names;
    }

    TestMac mac;
    QList<AppInfo> m_apps;
};

} // namespace

TEST_F(AppFilterTests, theSortOptionsHaveTheirOrderAndTexts)
{
    QStringList texts;
    for (const SortOption option : allSortOptions())
        texts.append(rawValue(option));
    EXPECT_EQ(texts, (QStringList{u"Cleanup Priority"_s, u"Last Used"_s, u"Name"_s, u"Times Used"_s}));
    EXPECT_EQ(AppFilter().sortBy, SortOption::usagePriority);
}

TEST_F(AppFilterTests, byPriorityTheForgottenComeFirstAndAmongThemTheNeverUsed)
{
    addOneOfEach();
    EXPECT_EQ(names({}), (QStringList{u"Never"_s, u"Forgotten"_s, u"Occasional"_s, u"Seasonal"_s,
                                      u"Unknown"_s, u"New"_s, u"Daily"_s}));
}

TEST_F(AppFilterTests, byLastUseTheLongestUnusedComeFirstAndTheNeverUsedAheadOfThem)
{
    addOneOfEach();
    EXPECT_EQ(names({.sortBy = SortOption::lastUsed}),
              (QStringList{u"Unknown"_s, u"Never"_s, u"Forgotten"_s, u"Seasonal"_s, u"Occasional"_s, u"New"_s,
                           u"Daily"_s}));
}

TEST_F(AppFilterTests, byNameLetterCaseDoesNotCount)
{
    for (const QString& name : {u"pencil"_s, u"Ink"_s, u"atlas"_s, u"Éclair"_s, u"Edit"_s, u"Zoom"_s})
        add(name, 1, 1);
    EXPECT_EQ(names({.sortBy = SortOption::name}),
              (QStringList{u"atlas"_s, u"Éclair"_s, u"Edit"_s, u"Ink"_s, u"pencil"_s, u"Zoom"_s}));
}

TEST_F(AppFilterTests, byUseTheMostUsedComeFirst)
{
    addOneOfEach();
    EXPECT_EQ(names({.sortBy = SortOption::useCount}),
              (QStringList{u"Daily"_s, u"Seasonal"_s, u"New"_s, u"Unknown"_s, u"Occasional"_s, u"Forgotten"_s,
                           u"Never"_s}));
}

TEST_F(AppFilterTests, equalsKeepTheirOrder)
{
    for (const QString& name : {u"c"_s, u"a"_s, u"C"_s, u"b"_s})
        add(name, 3, 4);
    for (const SortOption option : {SortOption::usagePriority, SortOption::lastUsed, SortOption::useCount})
        EXPECT_EQ(names({.sortBy = option}), (QStringList{u"c"_s, u"a"_s, u"C"_s, u"b"_s}));
    EXPECT_EQ(names({.sortBy = SortOption::name}), (QStringList{u"a"_s, u"b"_s, u"c"_s, u"C"_s}));
}

TEST_F(AppFilterTests, theCategoryLeavesOnlyItsOwn)
{
    addOneOfEach();
    EXPECT_EQ(names({.category = UsageCategory::forgotten}), (QStringList{u"Never"_s, u"Forgotten"_s}));
    m_apps.removeIf([](const AppInfo& app) { return app.usageCategory == UsageCategory::seasonal; });
    EXPECT_EQ(names({.category = UsageCategory::seasonal}), QStringList());
}

TEST_F(AppFilterTests, theSearchFindsAPartOfTheNameInAnyCase)
{
    addOneOfEach();
    EXPECT_EQ(names({.searchText = u"SEAS"_s}), QStringList{u"Seasonal"_s});
    EXPECT_EQ(names({.searchText = u"ne"_s}), (QStringList{u"Never"_s, u"New"_s}));
    EXPECT_EQ(names({.searchText = u"nowhere"_s}), QStringList());
}

TEST_F(AppFilterTests, theSearchFindsNothingByTheBundleIdentifier)
{
    addOneOfEach();
    EXPECT_EQ(names({.searchText = u"org.example"_s}), QStringList());
}

TEST_F(AppFilterTests, categoryAndSearchHoldTogether)
{
    addOneOfEach();
    EXPECT_EQ(names({.category = UsageCategory::forgotten, .searchText = u"ne"_s}), QStringList{u"Never"_s});
}

TEST_F(AppFilterTests, thousandsAreSearchedAndSortedBetweenTwoKeyStrokes)
{
    for (int i = 0; i < 5'000; ++i)
        add(u"Äpplication %1"_s.arg(i * 7919 % 5'000), i % 300, i);
    const AppIndex index(m_apps);
    for (const SortOption option : allSortOptions()) {
        const WorkTimer timer;
        EXPECT_EQ(index.filteredApps({.searchText = u"ÄPP"_s, .sortBy = option}).size(), 5'000);
        EXPECT_LT(timer.milliseconds(), 50) << rawValue(option).toStdString();
    }
}

} // namespace keelbright::testing
