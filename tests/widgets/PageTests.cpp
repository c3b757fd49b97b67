#include "Keelbright/widgets/Page.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/Label.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"

#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

} // namespace

TEST(Page, hasAReadableMaximumWidth)
{
    Page page;
    auto* section = new QWidget;
    page.content()->addWidget(section);
    page.resize(2000, 600);
    page.grab();
    EXPECT_EQ(section->width(), Metrics::pageMaxWidth);
    page.resize(700, 600);
    page.grab();
    EXPECT_EQ(section->width(), 700 - 2 * Metrics::pageMarginX);
}

TEST(Page, scrollsByKeyboardToBothEnds)
{
    Page page;
    auto* section = new QWidget;
    section->setFixedHeight(3000);
    page.content()->addWidget(section);
    page.resize(700, 600);
    page.grab();
    QTest::keyClick(&page, Qt::Key_End);
    EXPECT_EQ(page.verticalScrollBar()->value(), page.verticalScrollBar()->maximum());
    EXPECT_GT(page.verticalScrollBar()->value(), 0);
    QTest::keyClick(&page, Qt::Key_Home);
    EXPECT_EQ(page.verticalScrollBar()->value(), 0);
    EXPECT_EQ(page.focusPolicy(), Qt::NoFocus);
}

namespace {

/// A page of 600 points with a section of 1,000, and a part below it that is hidden at first.
class PageReveal : public ::testing::Test
{
protected:
    PageReveal()
    {
        auto* section = new QWidget;
        section->setFixedHeight(1'000);
        page.content()->addWidget(section);
        page.content()->addWidget(part);
        part->hide();
        page.resize(700, 600);
        page.show();
    }

    [[nodiscard]] bool isWholeInView() const
    {
        const QRect rect(part->mapTo(page.viewport(), QPoint()), part->size());
        return rect.height() > 0 && page.viewport()->rect().contains(rect);
    }

    Page page;
    QWidget* part = new QWidget;
};

} // namespace

TEST_F(PageReveal, scrollsToAPartThatComesUpBelow)
{
    part->setFixedHeight(80);
    part->show();
    page.reveal(part);
    EXPECT_TRUE(QTest::qWaitFor([this] { return isWholeInView(); }));
}

TEST_F(PageReveal, followsAPartThatGrows)
{
    part->setFixedHeight(10);
    part->show();
    page.reveal(part);
    for (const int height : {60, 120, 180}) {
        part->setFixedHeight(height);
        EXPECT_TRUE(QTest::qWaitFor([this, height] { return part->height() == height && isWholeInView(); }));
    }
}

TEST_F(PageReveal, showsTheBeginningOfAPartThatIsHigherThanThePage)
{
    part->setFixedHeight(2'000);
    part->show();
    page.reveal(part);
    EXPECT_TRUE(QTest::qWaitFor([this] { return part->mapTo(page.viewport(), QPoint()).y() == 16; }));
}

TEST_F(PageReveal, leavesThePageWhereThePartIsInView)
{
    part->setFixedHeight(80);
    part->show();
    EXPECT_TRUE(QTest::qWaitFor([this] {
        page.verticalScrollBar()->setValue(page.verticalScrollBar()->maximum());
        return page.verticalScrollBar()->maximum() > 0 && isWholeInView();
    }));
    const int before = page.verticalScrollBar()->value();
    page.reveal(part);
    EXPECT_EQ(page.verticalScrollBar()->value(), before);
}

TEST_F(PageReveal, doesNothingOnAHiddenPage)
{
    part->setFixedHeight(80);
    part->show();
    page.hide();
    page.reveal(part);
    page.show();
    page.grab();
    EXPECT_EQ(page.verticalScrollBar()->value(), 0);
}

TEST(PageHeader, keepsItsActionsWholeAndWrapsItsTexts)
{
    PageHeader header(u"Choose What to Protect"_s,
                      u"Keel Bright recommends common folders below. You can also add "
                      "your own custom folders."_s);
    auto* action = new Button(Button::Kind::bordered, u"Reset to Defaults"_s, u"arrow.counterclockwise"_s);
    header.addAction(action);
    header.resize(480, header.heightForWidth(480));
    header.grab();
    EXPECT_EQ(action->width(), action->sizeHint().width());
    EXPECT_EQ(action->geometry().right(), 479);
    EXPECT_GT(header.height(), PageHeader(u"Choose"_s, u"Brief"_s).sizeHint().height());
}

TEST(PageHeader, anEmptySubtitleTakesNoRoom)
{
    const PageHeader without(u"Settings"_s, QString());
    PageHeader with(u"Settings"_s, u"Subtitle"_s);
    EXPECT_LT(without.sizeHint().height(), with.sizeHint().height());
    with.setSubtitle(QString());
    with.grab();
    EXPECT_EQ(with.sizeHint().height(), without.sizeHint().height());
}

} // namespace keelbright
