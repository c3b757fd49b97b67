#include "Keelbright/screens/apps/AppListModel.h"

#include "Keelbright/screens/apps/AppIcons.h"
#include "Keelbright/screens/apps/LeftoverListModel.h"
#include "tests/screens/shared/ScreenTestCase.h"
#include "tests/support/EnglishNumbers.h"
#include "tests/support/MadeUpApplication.h"
#include "tests/support/WorkTimer.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppListModelTests : public ScreenTestCase
{
protected:
    [[nodiscard]] AppInfo app(const QString& name, qint64 useCount = 0) const
    {
        const QDateTime now = mac.clock()();
        return AppInfo({.name = name,
                        .bundleID = u"org.example.ink"_s,
                        .url = mac.root().appending(u"Applications/%1.app"_s.arg(name)),
                        .lastUsedDate = now.addDays(-1),
                        .useCount = useCount,
                        .dateAdded = now.addDays(-900)},
                       now);
    }

    AppIcons icons;
    AppListModel model{icons};
};

} // namespace

TEST_F(AppListModelTests, theModelIsSound)
{
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setApps({app(u"Ink"_s), app(u"Pencil"_s)});
    model.setFilter({.searchText = u"pen"_s});
    EXPECT_EQ(model.rowCount(), 1);
    model.setFilter({});
    EXPECT_EQ(model.rowCount(), 2);
    model.setApps({});
    EXPECT_EQ(model.rowCount(), 0);
    waitForBackgroundWork();
}

TEST_F(AppListModelTests, aRowHasNameVerdictAndReason)
{
    model.setApps({app(u"Ink"_s, 40)});
    const ListRow row = model.rowAt(0);
    EXPECT_EQ(row.title, u"Ink"_s);
    EXPECT_EQ(row.tag, u"Active"_s);
    EXPECT_EQ(row.tagColor, Role::green);
    EXPECT_EQ(row.detail, u"Used 40 times — last opened 1 day ago."_s);
    EXPECT_TRUE(row.actions.isEmpty());
    ASSERT_EQ(row.menuActions.size(), 2);
    EXPECT_EQ(row.menuActions.first().name, u"Reveal in Finder"_s);
    EXPECT_EQ(row.menuActions.last().name, u"Remove…"_s);
    EXPECT_TRUE(row.menuActions.last().isDelete);
    EXPECT_EQ(model.index(0).data(Qt::AccessibleTextRole).toString(),
              u"Ink, Active, Used 40 times — last opened 1 day ago."_s);
}

TEST_F(AppListModelTests, everyVerdictHasItsColour)
{
    const QDateTime now = mac.clock()();
    const auto judged = [&](std::optional<int> used, qint64 count, int added) {
        const auto date = used ? std::optional(now.addDays(-*used)) : std::nullopt;
        return AppInfo(
            {.name = u"Ink"_s, .lastUsedDate = date, .useCount = count, .dateAdded = now.addDays(-added)},
            now);
    };
    model.setApps({judged(1, 300, 400), judged(100, 200, 400), judged(20, 5, 400), judged(200, 2, 400),
                   judged(2, 9, 5), judged(std::nullopt, 7, 400)});
    QStringList tags;
    QList<Role> colors;
    for (int row = 0; row < model.rowCount(); ++row) {
        tags.append(model.rowAt(row).tag);
        colors.append(model.rowAt(row).tagColor);
    }
    EXPECT_EQ(tags, (QStringList{u"Rarely Used"_s, u"Occasional"_s, u"Was Important"_s, u"Unknown"_s,
                                 u"New"_s, u"Active"_s}));
    EXPECT_EQ(colors, (QList<Role>{Role::red, Role::orange, Role::accent, Role::secondaryText, Role::purple,
                                   Role::green}));
}

TEST_F(AppListModelTests, theIconComesIntoItsRow)
{
    addApplication({mac.root(), mac.clock()()}, "Applications", {.name = "Ink", .bundleID = "a"});
    model.setApps({app(u"Bare"_s), app(u"Ink"_s)});
    EXPECT_EQ(model.rowAt(1).picture, ListRow::Picture::tile);
    EXPECT_EQ(model.rowAt(1).symbol, u"app.fill"_s);
    QSignalSpy redrawn(&model, &AppListModel::dataChanged);
    ASSERT_TRUE(redrawn.wait(20'000));
    EXPECT_EQ(redrawn.first().first().toModelIndex().row(), 1);
    EXPECT_EQ(model.rowAt(1).picture, ListRow::Picture::image);
    EXPECT_EQ(model.rowAt(1).image.toImage().pixel(15, 15), 0xFF0A6CFF);
    (void)model.rowAt(0);
    ASSERT_TRUE(redrawn.wait(20'000));
    EXPECT_EQ(model.rowAt(0).picture, ListRow::Picture::tile);
}

TEST_F(AppListModelTests, anAppIsFoundByItsIdWhereItIsListed)
{
    const AppInfo ink = app(u"Ink"_s);
    model.setApps({app(u"Atlas"_s), ink});
    EXPECT_EQ(model.rowOf(ink.id), 1);
    model.setFilter({.searchText = u"atlas"_s});
    EXPECT_EQ(model.rowOf(ink.id), -1);
    EXPECT_EQ(model.rowOf(QUuid::createUuid()), -1);
}

TEST_F(AppListModelTests, thousandsAreSearchedBetweenTwoKeyStrokes)
{
    QList<AppInfo> apps;
    for (int i = 0; i < 5'000; ++i)
        apps.append(app(u"Application %1"_s.arg(i), i));
    model.setApps(apps);
    for (const QString& text : {u"a"_s, u"APP"_s, u"application 49"_s, u""_s}) {
        const WorkTimer timer;
        model.setFilter({.searchText = text, .sortBy = SortOption::name});
        EXPECT_LT(timer.milliseconds(), 50) << text.toStdString();
    }
    EXPECT_EQ(model.rowCount(), 5'000);
}

TEST(LeftoverListModel, isSoundAndShowsNameKindAndSize)
{
    const testing::EnglishNumbers english;
    LeftoverListModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setItems({{.url = FileURL::fromPath(u"/Users/mira/Library/Caches/org.example.ink"_s),
                     .sizeBytes = 1'200'000,
                     .kind = AppLeftover::Kind::cache}});
    const ListRow row = model.rowAt(0);
    EXPECT_EQ(row.symbol, u"arrow.clockwise.circle"_s);
    EXPECT_EQ(row.symbolColor, Role::orange);
    EXPECT_EQ(row.title, u"org.example.ink"_s);
    EXPECT_EQ(row.detail, u"Cache"_s);
    EXPECT_EQ(row.value, u"1.2 MB"_s);
    ASSERT_EQ(row.actions.size(), 1);
    EXPECT_EQ(row.actions.first().symbol, u"arrow.up.forward.square"_s);
    EXPECT_EQ(row.actions.first().name, u"Reveal in Finder"_s);
    EXPECT_FALSE(row.actions.first().isDelete);
    model.setItems({});
    EXPECT_EQ(model.rowCount(), 0);
}

} // namespace keelbright::testing
