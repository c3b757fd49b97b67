#include "Keelbright/screens/storage/BreakdownBar.h"

#include "tests/screens/shared/ScreenTestCase.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QList<FileTypeShare> shares{{u"Folders"_s, 6'000'000, Role::accent},
                                  {u"Video"_s, 3'000'000, Role::purple},
                                  {u"Other"_s, 999'000, Role::secondaryText},
                                  {u"Code"_s, 1'000, Role::teal}};

class BreakdownBarTests : public ScreenTestCase
{
protected:
    static QString toolTipAt(ShareBar& bar, int x)
    {
        const QPoint position(x, 5);
        QHelpEvent help(QEvent::ToolTip, position, bar.mapToGlobal(position));
        QApplication::sendEvent(&bar, &help);
        return QToolTip::text();
    }
};

} // namespace

TEST_F(BreakdownBarTests, aSegmentIsAsWideAsItsShareButAtLeastTwoPoints)
{
    ShareBar bar;
    bar.resize(1'000, 10);
    bar.setShares(shares, 10'000'000);
    const QList<QRectF> segments = bar.segments();
    ASSERT_EQ(segments.size(), 4);
    EXPECT_DOUBLE_EQ(segments.at(0).width(), 600);
    EXPECT_DOUBLE_EQ(segments.at(1).left(), 600);
    EXPECT_DOUBLE_EQ(segments.at(1).width(), 300);
    EXPECT_DOUBLE_EQ(segments.at(2).width(), 99.9);
    EXPECT_DOUBLE_EQ(segments.at(3).width(), 2);
}

TEST_F(BreakdownBarTests, filesWithoutBytesAreStillSeen)
{
    ShareBar bar;
    bar.resize(100, 10);
    bar.setShares({{u"Archives"_s, 0, Role::orange}}, 0);
    EXPECT_DOUBLE_EQ(bar.segments().first().width(), 2);
}

TEST_F(BreakdownBarTests, eachSegmentHasTheColorOfItsKind)
{
    ShareBar bar;
    bar.resize(1'000, 10);
    bar.setShares(shares, 10'000'000);
    const QImage picture = pictureOf(bar);
    EXPECT_EQ(picture.pixelColor(300, 5), Theme::instance().color(Role::accent));
    EXPECT_EQ(picture.pixelColor(750, 5), Theme::instance().color(Role::purple));
    EXPECT_EQ(picture.pixelColor(950, 5), Theme::instance().color(Role::secondaryText));
}

TEST_F(BreakdownBarTests, theToolTipIsTheKindAndItsSize)
{
    ShareBar bar;
    bar.resize(1'000, 10);
    bar.setShares(shares, 10'000'000);
    EXPECT_EQ(toolTipAt(bar, 10), u"Folders: 6 MB"_s);
    EXPECT_EQ(toolTipAt(bar, 700), u"Video: 3 MB"_s);
    EXPECT_EQ(accessibleName(&bar), u"Kinds of files"_s);
    EXPECT_EQ(bar.accessibleDescription(), u"Folders: 6 MB, Video: 3 MB, Other: 999 KB, Code: 1 KB"_s);
}

TEST_F(BreakdownBarTests, theLegendHoldsTheFirstSixOnly)
{
    BreakdownBar bar;
    QList<FileTypeShare> eight;
    for (int i = 0; i < 8; ++i)
        eight.append({u"Kind "_s + QString::number(i), 8'000 - i * 1'000, Role::green});
    bar.setShares(eight, 36'000);
    EXPECT_EQ(textsIn(bar),
              (QStringList{u"Kind 0"_s, u"8 KB"_s, u"Kind 1"_s, u"7 KB"_s, u"Kind 2"_s, u"6 KB"_s,
                           u"Kind 3"_s, u"5 KB"_s, u"Kind 4"_s, u"4 KB"_s, u"Kind 5"_s, u"3 KB"_s}));
    EXPECT_EQ(bar.findChild<ShareBar*>()->segments().size(), 8);
    bar.setShares(shares, 10'000'000);
    EXPECT_EQ(textsIn(bar).size(), 8);
}

TEST_F(BreakdownBarTests, theLegendWrapsInANarrowWindow)
{
    BreakdownBar bar;
    bar.setShares(shares, 10'000'000);
    EXPECT_GT(bar.heightForWidth(200), bar.heightForWidth(1'000));
}

} // namespace keelbright::testing
