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
