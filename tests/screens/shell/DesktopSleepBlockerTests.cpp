#include "Keelbright/screens/shell/DesktopSleepBlocker.h"

#include "tests/support/Printing.h"
#include "tests/support/PrivateBus.h"

#include <QTest>
#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace keelbright {

/// logind, which hands out a lock that holds until its file descriptor is closed.
class FakeLogind : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

public:
    ~FakeLogind() override { ::close(m_readEnd); }

    QList<QStringList> locks;

    /// Whether somebody still holds the last lock.
    [[nodiscard]] bool isHeld() const
    {
        char byte = 0;
        return m_readEnd >= 0 &&
               ::read(m_readEnd, &byte, 1) != 0; // 0 is the end, -1 that nothing is there yet
    }

public Q_SLOTS:

    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& who, const QString& why,
                                    const QString& mode)
    {
        locks.append({what, who, why, mode});
        std::array<int, 2> ends = {-1, -1};
        if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
            return {};
        ::close(m_readEnd);
        m_readEnd = ends[0];
        QDBusUnixFileDescriptor lock(ends[1]); // a copy
        ::close(ends[1]);
        return lock;
    }

private:
    int m_readEnd = -1;
};

/// The portal's own object for what it has granted.
class FakePortalRequest : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    int closed = 0;

public Q_SLOTS:

    void Close() { ++closed; }
};

class FakeInhibitPortal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public:
    QList<uint> flags;
    QList<QVariantMap> options;

public Q_SLOTS:

    QDBusObjectPath Inhibit(const QString&, uint what, const QVariantMap& choices)
    {
        flags.append(what);
        options.append(choices);
        return QDBusObjectPath(QStringLiteral("/org/freedesktop/portal/desktop/request/7"));
    }
};

namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 60'000; // milliseconds

class DesktopSleepBlockerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!bus.reasonMissing().empty())
            GTEST_SKIP() << bus.reasonMissing();
        ASSERT_TRUE(bus.client().isConnected());
    }

    void startLogind()
    {
        ASSERT_TRUE(bus.server().registerObject(u"/org/freedesktop/login1"_s, &logind,
                                                QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(bus.server().registerService(u"org.freedesktop.login1"_s));
    }

    void startPortal()
    {
        ASSERT_TRUE(bus.server().registerObject(u"/org/freedesktop/portal/desktop"_s, &portal,
                                                QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(bus.server().registerObject(u"/org/freedesktop/portal/desktop/request/7"_s, &request,
                                                QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(bus.server().registerService(u"org.freedesktop.portal.Desktop"_s));
    }

    [[nodiscard]] bool isReleased()
    {
        return QTest::qWaitFor([this] { return !logind.isHeld(); }, patience);
    }

    FakeLogind logind;
    FakeInhibitPortal portal;
    FakePortalRequest request;
    testing::PrivateBus bus;
    std::optional<DesktopSleepBlocker> blocker{std::in_place, [this] { return bus.client(); },
                                               [this] { return bus.client(); }};
};

} // namespace

TEST_F(DesktopSleepBlockerTest, holdsLogindsLockUntilSleepIsAllowed)
{
    startLogind();
    blocker->block(u"A backup is running"_s);
    EXPECT_TRUE(logind.locks.isEmpty()) << "it does not wait";
    bus.carryEverythingOver();
    EXPECT_EQ(logind.locks, QList<QStringList>{QStringList(
                                {u"sleep"_s, u"Keel Bright"_s, u"A backup is running"_s, u"block"_s})});
    EXPECT_TRUE(logind.isHeld());
    blocker->allow();
    EXPECT_TRUE(isReleased());
}

TEST_F(DesktopSleepBlockerTest, asksThePortalAgainstSuspendOnly)
{
    startPortal();
    blocker->block(u"A backup is running"_s);
    bus.carryEverythingOver();
    EXPECT_EQ(portal.flags, QList<uint>{4});
    EXPECT_EQ(portal.options, QList<QVariantMap>{QVariantMap({{u"reason"_s, u"A backup is running"_s}})});
    EXPECT_EQ(request.closed, 0);
    blocker->allow();
    bus.carryEverythingOver();
    EXPECT_EQ(request.closed, 1);
}

TEST_F(DesktopSleepBlockerTest, asksBothAgainForTheNextRun)
{
    startLogind();
    startPortal();
    for (int run = 1; run <= 2; ++run) {
        blocker->block(u"A backup is running"_s);
        blocker->block(u"A backup is running"_s);
        bus.carryEverythingOver();
        EXPECT_TRUE(logind.isHeld());
        blocker->allow();
        blocker->allow();
        EXPECT_TRUE(isReleased());
        bus.carryEverythingOver();
        EXPECT_EQ(logind.locks.size(), run);
        EXPECT_EQ(portal.flags.size(), run);
        EXPECT_EQ(request.closed, run);
    }
}

TEST_F(DesktopSleepBlockerTest, dropsWhatIsGrantedAfterTheEnd)
{
    startLogind();
    startPortal();
    blocker->block(u"A backup is running"_s);
    blocker->allow();
    bus.carryEverythingOver();
    EXPECT_EQ(logind.locks.size(), 1);
    EXPECT_TRUE(isReleased());
    EXPECT_EQ(request.closed, 1);
}

TEST_F(DesktopSleepBlockerTest, releasesAllAtItsEnd)
{
    startLogind();
    startPortal();
    blocker->block(u"A backup is running"_s);
    bus.carryEverythingOver();
    blocker.reset();
    EXPECT_TRUE(isReleased());
    bus.carryEverythingOver();
    EXPECT_EQ(request.closed, 1);
}

TEST_F(DesktopSleepBlockerTest, doesNothingWhereNobodyAnswers)
{
    blocker->block(u"A backup is running"_s);
    bus.carryEverythingOver();
    blocker->allow();
    EXPECT_FALSE(logind.isHeld());
}

TEST(DesktopSleepBlocker, connectsToNoBusBeforeItHasTo)
{
    int connections = 0;
    const auto none = [&connections] {
        ++connections;
        return QDBusConnection(u"no such connection"_s);
    };
    DesktopSleepBlocker blocker(none, none);
    blocker.allow();
    EXPECT_EQ(connections, 0);
    blocker.block(u"A backup is running"_s);
    EXPECT_EQ(connections, 2);
    blocker.allow();
}

} // namespace keelbright

#include "DesktopSleepBlockerTests.moc"
