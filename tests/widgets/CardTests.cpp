#include "Keelbright/widgets/Card.h"

#include "Keelbright/widgets/CardButton.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/StatusCard.h"
#include "tests/support/Accessible.h"
#include "tests/support/Printing.h"
#include "tests/support/ThemeGuard.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using testing::accessibleName;
using testing::pictureOf;
using testing::ThemeGuard;

QWidget* makeRow(int height)
{
    auto* row = new QWidget;
    row->setFixedHeight(height);
    return row;
}

} // namespace

TEST(RowList, drawsALineAboveEachShownRowExceptTheFirst)
{
    const ThemeGuard guard;
    RowList list;
    for (int i = 0; i < 3; ++i)
        list.addRow(makeRow(40));
    list.row(0)->hide();
    list.resize(200, 80 + Metrics::cardShadow);
    const QImage picture = pictureOf(list);
    const QColor card = Theme::instance().color(Role::card);
    const QColor line = composed(card, Theme::instance().color(Role::line));
    EXPECT_EQ(picture.pixelColor(100, list.row(2)->y()), line);
    EXPECT_EQ(picture.pixelColor(100, list.row(2)->y() - 10), card);
    EXPECT_EQ(picture.pixelColor(100, list.row(1)->y() + 3), card);
}

TEST(RowList, destroysItsRowsWhenItIsCleared)
{
    RowList list;
    QPointer<QWidget> row = makeRow(40);
    list.addRow(row);
    EXPECT_EQ(list.rowCount(), 1);
    list.clear();
    EXPECT_EQ(list.rowCount(), 0);
    EXPECT_EQ(list.row(0), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(row.isNull());
}

TEST(CardButton, isPressedByKeyAndByAClickOnItsContent)
{
    CardButton button(CardButton::Frame::card);
    auto* layout = new QVBoxLayout(&button);
    layout->addWidget(new StatusCard(u"Junk"_s, u"412.6 MB"_s, u"trash.fill"_s, Role::orange));
    button.resize(button.sizeHint());
    const QSignalSpy clicks(&button, &QAbstractButton::clicked);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 2);
    EXPECT_EQ(button.focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(testing::accessibleRole(&button), QAccessible::Button);
}

TEST(StatusCard, isNamedAfterItsTitleAndItsValue)
{
    StatusCard card(u"Files Copied"_s, u"1204"_s, u"doc.fill"_s, Role::green);
    EXPECT_EQ(card.findChild<NumberLabel*>()->text(), u"1204"_s);
    EXPECT_EQ(accessibleName(&card), u"Files Copied: 1204"_s);
}

} // namespace keelbright
