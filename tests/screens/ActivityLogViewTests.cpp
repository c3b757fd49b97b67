#include "Keelbright/screens/ActivityLogView.h"

#include "Keelbright/screens/review/ActivityLogModel.h"
#include "Keelbright/widgets/EmptyStateView.h"
#include "Keelbright/widgets/MenuButton.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QElapsedTimer>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using Kind = ActivityEntry::Kind;

const QString csvHeader = u"Timestamp,Type,Title,Detail,Items,Size"_s;

class ActivityLogViewTests : public ScreenTestCase
{
protected:
    [[nodiscard]] ActivityEntry entry(Kind kind, qint64 bytes = 2'500'000,
                                      const QString& title = u"Done"_s) const
    {
        return {.id = QUuid::createUuid(),
                .timestamp = mac.clock()(),
                .kind = kind,
                .title = title,
                .detail = u"Explained"_s,
                .bytesAffected = bytes,
                .itemCount = 1};
    }

    [[nodiscard]] static RowListView& list(const QWidget& view) { return *view.findChild<RowListView*>(); }

    /// The headers and titles from top to bottom.
    [[nodiscard]] static QStringList rows(const QWidget& view)
    {
        const RowModel* model = list(view).rowModel();
        QStringList texts;
        for (int row = 0; row < model->rowCount(); ++row)
            texts.append(model->index(row).data().toString());
        return texts;
    }

    [[nodiscard]] static MenuButton& filter(const QWidget& view) { return *view.findChild<MenuButton*>(); }

    /// The entries of the filter's menu; a separator has no text.
    [[nodiscard]] static QList<QAction*> choices(const QWidget& view)
    {
        return filter(view).choiceMenu()->actions();
    }

    static void choose(const QWidget& view, const QString& choice)
    {
        for (QAction* action : choices(view)) {
            if (action->text() == choice)
                action->trigger();
        }
    }

    [[nodiscard]] QString saved(const QString& name) const
    {
        return QString::fromUtf8(TestMac::read(mac.home().appending(name)));
    }
};

} // namespace

TEST_F(ActivityLogViewTests, withoutEntriesThereIsTheEmptyState)
{
    ActivityLogView view(context());
    show(view);
    EXPECT_EQ(
        textsIn(view),
        (QStringList{u"Activity Log"_s, u"No actions recorded"_s, u"No activity yet"_s,
                     u"Actions from Backup, Junk Cleaner, Organizer, and App Manager will appear here."_s}));
    EXPECT_EQ(shownSymbols(view), QStringList{u"clock.arrow.circlepath"_s});
    EXPECT_FALSE(list(view).isVisible());
    expectEveryControlIsNamedAndReachedByTab(view);
}

TEST_F(ActivityLogViewTests, anUnreadableLogIsAnEmptyOne)
{
    mac.writeFile("Users/mira/.local/share/Keelbright/activity.json", "[{\"kind\": \"Juggling\"}]");
    ActivityLogView view(context());
    show(view);
    EXPECT_TRUE(textsIn(view).contains(u"No activity yet"_s));
}

TEST_F(ActivityLogViewTests, showsTheEntriesByDay)
{
    activityStore.append(entry(Kind::backup, 0, u"First"_s));
    mac.setNow(mac.clock()().addDays(1));
    activityStore.append(entry(Kind::clean, 0, u"Second"_s));
    ActivityLogView view(context());
    show(view);
    EXPECT_EQ(rows(view), (QStringList{u"Today"_s, u"Second"_s, u"Yesterday"_s, u"First"_s}));
    EXPECT_TRUE(list(view).isVisible());
    EXPECT_FALSE(textsIn(view).contains(u"No activity yet"_s));
    EXPECT_EQ(list(view).rowModel()->index(1).data(Qt::AccessibleTextRole).toString(),
              u"Second, Just now, Explained"_s);
    expectEveryControlIsNamedAndReachedByTab(view);
}

TEST_F(ActivityLogViewTests, oneActionIsSingular)
{
    EXPECT_EQ(ActivityLogView::summaryLine({}), u"No actions recorded"_s);
    EXPECT_EQ(ActivityLogView::summaryLine({entry(Kind::scan, 0)}), u"1 action · Zero KB freed total"_s);
    EXPECT_EQ(ActivityLogView::summaryLine({entry(Kind::backup), entry(Kind::clean)}),
              u"2 actions · 5 MB freed total"_s);
}

TEST_F(ActivityLogViewTests, theSumOfHugeNumbersDoesNotOverflow)
{
    constexpr qint64 maximum = std::numeric_limits<qint64>::max();
    constexpr qint64 minimum = std::numeric_limits<qint64>::min();
    EXPECT_EQ(ActivityLogView::summaryLine({entry(Kind::clean, maximum), entry(Kind::clean, maximum)}),
              ActivityLogView::summaryLine({entry(Kind::clean, maximum), entry(Kind::clean, 0)}));
    EXPECT_EQ(ActivityLogView::summaryLine({entry(Kind::clean, minimum), entry(Kind::clean, minimum)}),
              ActivityLogView::summaryLine({entry(Kind::clean, minimum), entry(Kind::clean, 0)}));
    EXPECT_EQ(ActivityLogView::summaryLine({entry(Kind::clean, 1'500'000), entry(Kind::clean, -500'000)}),
              u"2 actions · 1 MB freed total"_s);
}

TEST_F(ActivityLogViewTests, theFilterOffersEveryKind)
{
    const ActivityLogView view(context());
    QStringList texts;
    for (const QAction* action : choices(view))
        texts.append(action->isSeparator() ? u"-"_s : action->text());
    EXPECT_EQ(texts, (QStringList{u"All"_s, u"-"_s, u"Backup"_s, u"Junk Clean"_s, u"Organise"_s,
                                  u"App Removed"_s, u"Full Scan"_s}));
    const auto picture = [](const QIcon& icon) { return icon.pixmap(16).toImage(); };
    EXPECT_TRUE(choices(view).first()->icon().isNull());
    for (qsizetype i = 0; i < ActivityEntry::allKinds().size(); ++i) {
        const QString key = ActivityEntry::icon(ActivityEntry::allKinds().at(i));
        EXPECT_EQ(picture(choices(view).at(i + 2)->icon()),
                  picture(Symbol::icon(key, Theme::instance().color(Role::mutedText))))
            << key.toStdString();
    }
    EXPECT_EQ(filter(view).accessibleName(), u"Filter"_s);
    EXPECT_EQ(filter(view).caption(), u"All"_s);
}

TEST_F(ActivityLogViewTests, theFilterShowsOneKindAndAllAgain)
{
    activityStore.append(entry(Kind::backup, 1'000'000, u"Saved"_s));
    activityStore.append(entry(Kind::clean, 1'000'000, u"Cleaned"_s));
    ActivityLogView view(context());
    show(view);
    choose(view, u"Backup"_s);
    EXPECT_EQ(view.filterKind(), Kind::backup);
    EXPECT_EQ(rows(view), (QStringList{u"Today"_s, u"Saved"_s}));
    EXPECT_EQ(filter(view).caption(), u"Backup"_s);
    // The line counts all entries, not only the shown ones.
    EXPECT_TRUE(textsIn(view).contains(u"2 actions · 2 MB freed total"_s));
    choose(view, u"All"_s);
    EXPECT_EQ(view.filterKind(), std::nullopt);
    EXPECT_EQ(rows(view), (QStringList{u"Today"_s, u"Cleaned"_s, u"Saved"_s}));
}

TEST_F(ActivityLogViewTests, theMenuFollowsTheFilter)
{
    ActivityLogView view(context());
    show(view);
    for (const Kind kind : ActivityEntry::allKinds()) {
        view.setFilterKind(kind);
        EXPECT_EQ(filter(view).caption(), ActivityEntry::rawValue(kind));
    }
    view.setFilterKind(std::nullopt);
    EXPECT_EQ(filter(view).caption(), u"All"_s);
    EXPECT_TRUE(choices(view).first()->isChecked());
}

TEST_F(ActivityLogViewTests, theToolbarIsInOrder)
{
    ActivityLogView view(context());
    show(view);
    const auto left = [&view](const QWidget& widget) { return widget.mapTo(&view, QPoint()).x(); };
    const QLabel* title = view.findChild<QLabel*>();
    EXPECT_EQ(title->text(), u"Activity Log"_s);
    EXPECT_LT(left(*title), left(filter(view)));
    EXPECT_LT(left(filter(view)), left(*button(view, u"Export"_s)));
    EXPECT_LT(left(*button(view, u"Export"_s)), left(*button(view, u"Clear activity log"_s)));
}

TEST_F(ActivityLogViewTests, aKindWithoutEntriesShowsTheNoMatchLine)
{
    activityStore.append(entry(Kind::backup));
    ActivityLogView view(context());
    show(view);
    choose(view, u"Junk Clean"_s);
    EXPECT_EQ(textsIn(view), (QStringList{u"Activity Log"_s, u"1 action · 2.5 MB freed total"_s,
                                          u"No Junk Clean entries"_s}));
    EXPECT_FALSE(list(view).isVisible());
    EXPECT_TRUE(accessibleNames(view).contains(u"No Junk Clean entries"_s));
    expectEveryControlIsNamedAndReachedByTab(view);
}

TEST_F(ActivityLogViewTests, withoutAnyEntryTheFilterChangesNothing)
{
    ActivityLogView view(context());
    show(view);
    choose(view, u"Junk Clean"_s);
    EXPECT_TRUE(textsIn(view).contains(u"No activity yet"_s));
}

TEST_F(ActivityLogViewTests, clearingEmptiesTheLogAtOnceWithoutAQuestion)
{
    activityStore.append(entry(Kind::backup));
    ActivityLogView view(context());
    show(view);
    EXPECT_EQ(button(view, u"Clear activity log"_s)->symbol(), u"trash"_s);
    EXPECT_EQ(button(view, u"Clear activity log"_s)->toolTip(), u"Clear activity log"_s);
    button(view, u"Clear activity log"_s)->click();
    EXPECT_TRUE(alerts.requests().isEmpty());
    EXPECT_TRUE(activityStore.load().isEmpty());
    EXPECT_TRUE(textsIn(view).contains(u"No activity yet"_s));
    EXPECT_TRUE(textsIn(view).contains(u"No actions recorded"_s));
    files.willChoose(mac.home().appending(u"log.csv"_s));
    button(view, u"Export"_s)->click();
    EXPECT_EQ(saved(u"log.csv"_s), csvHeader);
}

TEST_F(ActivityLogViewTests, aClearedLogShowsTheEmptyStateDespiteAFilter)
{
    activityStore.append(entry(Kind::backup));
    ActivityLogView view(context());
    show(view);
    choose(view, u"Junk Clean"_s);
    button(view, u"Clear activity log"_s)->click();
    EXPECT_TRUE(textsIn(view).contains(u"No activity yet"_s));
}

TEST_F(ActivityLogViewTests, theExportAsksForAFileAndWritesAllEntries)
{
    activityStore.append(entry(Kind::backup, 0, u"Saved, at last"_s));
    activityStore.append(entry(Kind::clean));
    ActivityLogView view(context());
    show(view);
    choose(view, u"Junk Clean"_s);
    EXPECT_EQ(button(view, u"Export"_s)->symbol(), u"square.and.arrow.up"_s);
    EXPECT_EQ(button(view, u"Export"_s)->toolTip(), u"Export log as CSV"_s);
    files.willChoose(mac.home().appending(u"Protokoll für März.csv"_s));
    button(view, u"Export"_s)->click();
    ASSERT_EQ(files.saveRequests.size(), 1);
    EXPECT_EQ(files.saveRequests.first().name, u"Keelbright-Activity.csv"_s);
    EXPECT_EQ(files.saveRequests.first().extension, u"csv"_s);
    EXPECT_EQ(saved(u"Protokoll für März.csv"_s),
              csvHeader + u"\n2026-03-02T09:05:07Z,Junk Clean,Done,Explained,1,2.5 MB"
                          "\n2026-03-02T09:05:07Z,Backup,Saved; at last,Explained,1,"_s);
}

TEST_F(ActivityLogViewTests, theExportHoldsTheEntriesOnDisk)
{
    ActivityLogView view(context());
    show(view);
    activityStore.append(entry(Kind::backup, 0, u"Written meanwhile"_s));
    files.willChoose(mac.home().appending(u"log.csv"_s));
    button(view, u"Export"_s)->click();
    EXPECT_TRUE(saved(u"log.csv"_s).contains(u"Written meanwhile"_s));
    EXPECT_TRUE(textsIn(view).contains(u"No activity yet"_s));
}

TEST_F(ActivityLogViewTests, anExportThatFailsSaysNothing)
{
    activityStore.append(entry(Kind::backup));
    ActivityLogView view(context());
    show(view);
    files.willChoose(mac.home().appending(u"no such folder/log.csv"_s));
    button(view, u"Export"_s)->click();
    EXPECT_TRUE(alerts.requests().isEmpty());
    EXPECT_EQ(textsIn(view), (QStringList{u"Activity Log"_s, u"1 action · 2.5 MB freed total"_s}));
}

TEST_F(ActivityLogViewTests, eachAppearanceReadsTheLogAgain)
{
    ActivityLogView view(context());
    show(view);
    activityStore.append(entry(Kind::backup));
    EXPECT_TRUE(textsIn(view).contains(u"No activity yet"_s));
    view.hide();
    show(view);
    EXPECT_FALSE(textsIn(view).contains(u"No activity yet"_s));
    EXPECT_TRUE(list(view).isVisible());
}

TEST_F(ActivityLogViewTests, fiveHundredEntriesAreShownAtOnce)
{
    for (int i = 0; i < 500; ++i)
        activityStore.append(entry(Kind::clean));
    QElapsedTimer timer;
    timer.start();
    ActivityLogView view(context());
    show(view);
    RecordProperty("milliseconds", static_cast<int>(timer.elapsed()));
    EXPECT_EQ(list(view).rowModel()->rowCount(), 501);
    EXPECT_TRUE(textsIn(view).contains(u"500 actions · 1.25 GB freed total"_s));
}

} // namespace keelbright::testing
