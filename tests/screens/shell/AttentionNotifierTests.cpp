#include "Keelbright/screens/shell/AttentionNotifier.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

void setState(Qt::ApplicationState state)
{
    Q_EMIT qGuiApp->applicationStateChanged(state);
}

class AttentionNotifierTest : public ::testing::Test
{
protected:
    void show(int& clicks)
    {
        notifier.show({QStringLiteral("Backup completed"), {}}, [&clicks] { ++clicks; });
    }

    int asked = 0;
    AttentionNotifier notifier{[this] { ++asked; }};
};

TEST_F(AttentionNotifierTest, asksForAttentionAtEachNotification)
{
    int clicks = 0;
    show(clicks);
    EXPECT_EQ(asked, 1);
    show(clicks);
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(clicks, 0);
}

TEST_F(AttentionNotifierTest, whoBringsTheProgramToTheFrontHasClickedOnce)
{
    int clicks = 0;
    show(clicks);
    setState(Qt::ApplicationInactive);
    EXPECT_EQ(clicks, 0);
    setState(Qt::ApplicationActive);
    EXPECT_EQ(clicks, 1);
    setState(Qt::ApplicationInactive);
    setState(Qt::ApplicationActive);
    EXPECT_EQ(clicks, 1);
}

TEST_F(AttentionNotifierTest, aLaterNotificationTakesThePlaceOfTheEarlierOne)
{
    int first = 0;
    int second = 0;
    show(first);
    show(second);
    setState(Qt::ApplicationActive);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

TEST_F(AttentionNotifierTest, comingToTheFrontWithoutANotificationIsNoClick)
{
    setState(Qt::ApplicationActive);
    EXPECT_EQ(asked, 0);
}

} // namespace
} // namespace keelbright
