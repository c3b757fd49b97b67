#include "Keelbright/screens/shell/DesktopNotifier.h"

#include "tests/support/Printing.h"
#include "tests/support/PrivateBus.h"

#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

/// A desktop's notifications, of which the user clicks one.
class FakeNotifications : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Call
    {
        QString program;
        uint replaced;
        QString icon;
        QString title;
        QString text;
        QStringList actions;
        QVariantMap hints;
        int time;
    };

    QList<Call> calls;
    uint number = 40;

public Q_SLOTS:

    // NOLINTNEXTLINE(readability-function-size): the arguments are the interface's
    uint Notify(const QString& program, uint replaced, const QString& icon, const QString& title,
                const QString& text, const QStringList& actions, const QVariantMap& hints, int time)
    {
        calls.append({program, replaced, icon, title, text, actions, hints, time});
        return ++number;
    }

Q_SIGNALS:
    void ActionInvoked(uint id, const QString& action);
};

namespace {

using namespace Qt::StringLiterals;

class DesktopNotifierTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!bus.reasonMissing().empty())
            GTEST_SKIP() << bus.reasonMissing();
        ASSERT_TRUE(bus.client().isConnected());
        ASSERT_TRUE(
            bus.server().registerObject(u"/org/freedesktop/Notifications"_s, &desktop,
                                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        ASSERT_TRUE(bus.server().registerService(u"org.freedesktop.Notifications"_s));
    }

    void show(const Notification& notification = {u"Backup completed"_s, u"12 files"_s})
    {
        notifier.show(notification, [this] { ++clicks; });
        bus.carryEverythingOver();
    }

    void click(uint id, const QString& action = u"default"_s)
    {
        Q_EMIT desktop.ActionInvoked(id, action);
        bus.carryEverythingOver();
    }

    FakeNotifications desktop;
    testing::PrivateBus bus;
    DesktopNotifier notifier{bus.client()};
    int clicks = 0;
};

} // namespace

TEST_F(DesktopNotifierTest, showsTitleAndTextUnderTheProgramsNameAndIcon)
{
    notifier.show({u"Backup completed"_s, u"12 files · 3.4 MB"_s}, [] {});
    EXPECT_TRUE(desktop.calls.isEmpty()) << "it does not wait";
    bus.carryEverythingOver();
    ASSERT_EQ(desktop.calls.size(), 1);
    const FakeNotifications::Call& call = desktop.calls.first();
    EXPECT_EQ(call.program, u"Keel Bright"_s);
    EXPECT_EQ(call.replaced, 0U);
    EXPECT_EQ(call.icon, u"keelbright"_s);
    EXPECT_EQ(call.title, u"Backup completed"_s);
    EXPECT_EQ(call.text, u"12 files · 3.4 MB"_s);
    EXPECT_EQ(call.actions, (QStringList{u"default"_s, u"Show"_s}));
    EXPECT_EQ(call.hints, QVariantMap({{u"desktop-entry"_s, u"keelbright"_s}}));
    EXPECT_EQ(call.time, -1);
}

TEST_F(DesktopNotifierTest, showsNamesWithMarkupAsTheyAre)
{
    show({u"Backup could not start"_s, u"a <b>&amp; c"_s});
    EXPECT_EQ(desktop.calls.first().text, u"a &lt;b&gt;&amp;amp; c"_s);
}

TEST_F(DesktopNotifierTest, putsANewOneInThePlaceOfTheOneBefore)
{
    show();
    show();
    ASSERT_EQ(desktop.calls.size(), 2);
    EXPECT_EQ(desktop.calls.last().replaced, 41U);
}

TEST_F(DesktopNotifierTest, passesOnAClickOnItAndNoOther)
{
    show();
    click(40);
    click(41, u"snooze"_s);
    EXPECT_EQ(clicks, 0);
    click(41);
    EXPECT_EQ(clicks, 1);
    show();
    click(41);
    EXPECT_EQ(clicks, 1);
    click(42);
    EXPECT_EQ(clicks, 2);
}

TEST(DesktopNotifier, showsNothingWithoutABus)
{
    bool isClicked = false;
    DesktopNotifier notifier{QDBusConnection(u"no such connection"_s)};
    notifier.show({u"Backup completed"_s, u"12 files"_s}, [&] { isClicked = true; });
    EXPECT_FALSE(isClicked);
}

} // namespace keelbright

#include "DesktopNotifierTests.moc"
