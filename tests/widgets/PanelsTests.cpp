#include "Keelbright/widgets/Panels.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QSplitter>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(PanelHeaderTest, showsItsTextsAndCutsWhatDoesNotFit)
{
    const ThemeGuard theme;
    PanelHeader header(QString(200, u'w'), {}, {}, Role::orange);
    header.addTrailing(new Button(Button::Kind::bordered, u"Select All"_s));
    header.resize(300, header.sizeHint().height());
    header.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&header));
    const QList<ElidedLabel*> labels = header.findChildren<ElidedLabel*>();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_NE(labels.at(0)->shownText(), labels.at(0)->text());
    EXPECT_FALSE(labels.at(1)->isVisible());
    EXPECT_FALSE(header.findChild<SymbolLabel*>()->isVisible());
    EXPECT_LE(header.findChild<Button*>()->geometry().right(), 300);
    header.setSubtitle(u"23 items"_s);
    header.setSymbol(u"trash.fill"_s, Role::red);
    EXPECT_TRUE(labels.at(1)->isVisible());
    EXPECT_TRUE(header.findChild<SymbolLabel*>()->isVisible());
    EXPECT_EQ(header.findChild<SymbolLabel*>()->colorRole(), Role::red);
}

TEST(SplitTest, theRightPanelTakesTheRemainingWidth)
{
    const ThemeGuard theme;
    auto* left = new Ground(Role::window);
    auto* right = new Ground(Role::card);
    const std::unique_ptr<QWidget> split(makeSplit(left, right, 290));
    split->resize(940, 500);
    split->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(split.get()));
    EXPECT_EQ(left->width(), 290);
    EXPECT_EQ(right->width(), 940 - 290 - 1);
    EXPECT_EQ(pictureOf(*left).pixelColor(5, 5), Theme::instance().color(Role::window));
    EXPECT_EQ(pictureOf(*right).pixelColor(5, 5), Theme::instance().color(Role::card));
}

TEST(SplitTest, theLeftPanelIsReadFirst)
{
    const ThemeGuard theme;
    auto* left = new Ground(Role::window);
    auto* right = new Ground(Role::card);
    const std::unique_ptr<QWidget> split(makeSplit(left, right, 290));
    EXPECT_EQ(split->findChildren<Ground*>(), (QList<Ground*>{left, right}));
}

} // namespace keelbright::testing
