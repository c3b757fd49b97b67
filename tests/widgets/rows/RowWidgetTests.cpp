#include "Keelbright/widgets/rows/RowWidget.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using testing::accessibleName;

/// What the menu key offers while the focus is there; null where that is nothing.
QMenu* openMenu(RowWidget& row, QWidget* focused)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), focused->mapToGlobal(QPoint()));
    QApplication::sendEvent(focused, &event);
    return row.findChild<QMenu*>();
}

} // namespace

TEST(RowWidget, readsAsItsNameAndItsSecondLine)
{
    RowWidget row(nullptr, u"Pictures"_s, u"/Users/mira/Pictures"_s, RowWidget::Detail::path);
    EXPECT_EQ(accessibleName(&row), u"Pictures, /Users/mira/Pictures"_s);
    row.setDetail(QString());
    EXPECT_EQ(accessibleName(&row), u"Pictures"_s);
    EXPECT_TRUE(row.detailLabel()->isHidden());
    row.setTitle(u"Photos"_s);
    EXPECT_EQ(accessibleName(&row), u"Photos"_s);
}

TEST(RowWidget, keepsWhatStandsAtItsEndWholeHoweverLongTheNameIs)
{
    auto* button = new Button(Button::Kind::bordered, u"Change"_s);
    RowWidget row(new Tile(u"folder.fill"_s, Role::accent), QString(300, u'n'), QString(300, u'p'),
                  RowWidget::Detail::path);
    row.addTrailing(button);
    row.resize(400, row.sizeHint().height());
    row.grab();
    EXPECT_EQ(button->width(), button->sizeHint().width());
    EXPECT_LE(button->geometry().right(), 400);
    EXPECT_EQ(row.titleLabel()->toolTip(), QString(300, u'n'));
    EXPECT_TRUE(row.detailLabel()->shownText().endsWith(u'p'));
}

TEST(RowWidget, itsMenuHoldsWhatItsButtonsDo)
{
    auto* change = new Button(Button::Kind::bordered, u"Change"_s);
    auto* remove = new Button(Button::Kind::plainIcon, u"Remove Fish & Chips"_s, u"minus.circle.fill"_s);
    auto* hidden = new Button(Button::Kind::bordered, u"Hidden"_s);
    RowWidget row(nullptr, u"Fish & Chips"_s);
    for (Button* button : {change, remove, hidden})
        row.addTrailing(button);
    hidden->hide();
    change->setEnabled(false);
    row.show();
    const QSignalSpy removed(remove, &Button::clicked);
    const QMenu* menu = openMenu(row, remove);
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions().at(0)->text(), u"Change"_s);
    EXPECT_FALSE(menu->actions().at(0)->isEnabled());
    EXPECT_TRUE(menu->actions().at(0)->icon().isNull());
    EXPECT_EQ(menu->actions().at(1)->text(), u"Remove Fish && Chips"_s);
    EXPECT_FALSE(menu->actions().at(1)->icon().isNull());
    menu->actions().at(1)->trigger();
    EXPECT_EQ(removed.size(), 1);
}

TEST(RowWidget, aRowThatOffersNothingHasNoMenu)
{
    RowWidget row(nullptr, u"Pictures"_s);
    EXPECT_EQ(openMenu(row, &row), nullptr);
}

TEST(RowWidget, isAtLeastOneRowHigh)
{
    const RowWidget row(nullptr, u"Pictures"_s);
    EXPECT_GE(row.minimumHeight(), Metrics::row);
}

TEST(Tag, showsItsText)
{
    const Tag tag(u"Not found"_s, Role::orange);
    auto* label = tag.findChild<QLabel*>();
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(accessibleName(label), u"Not found"_s);
}

TEST(Tag, standsOnAFaintTintOfItsColour)
{
    const testing::ThemeGuard guard;
    Tag tag(u"Was Important"_s, Role::accent);
    tag.resize(tag.sizeHint());
    const QColor ground = testing::pictureOf(tag).pixelColor(3, tag.height() / 2);
    EXPECT_TRUE(testing::isNear(ground, Theme::instance().tint(Role::accent, 0.12)));
}

} // namespace keelbright
