#include "Keelbright/screens/shell/DesktopTaskBar.h"

#include "tests/support/Printing.h"
#include "tests/support/PrivateBus.h"

#include <QTest>
#include <gtest/gtest.h>

namespace keelbright {

/// A dock that keeps what programs announce.
class FakeDock : public QObject
{
    Q_OBJECT

public:
    struct Update
    {
        QString program;
        QVariantMap properties;
    };

    QList<Update> updates;

public Q_SLOTS:

    void update(const QString& program, const QVariantMap& properties)
    {
        updates.append({program, properties});
    }
};

namespace {

using namespace Qt::StringLiterals;

class DesktopTaskBarTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!bus.reasonMissing().empty())
            GTEST_SKIP() << bus.reasonMissing();
        ASSERT_TRUE(bus.client().isConnected());
        // From any program and any object, as docks do.
        ASSERT_TRUE(bus.server().connect(QString(), QString(), u"com.canonical.Unity.LauncherEntry"_s,
                                         u"Update"_s, &dock, SLOT(update(QString, QVariantMap))));
        bus.carryEverythingOver();
    }

    FakeDock dock;
    testing::PrivateBus bus;
    DesktopTaskBar taskBar{bus.client()};
};

} // namespace

TEST_F(DesktopTaskBarTest, showsProgressOnTheEntryOfTheDesktopFile)
{
    taskBar.showProgress(0.25);
    EXPECT_TRUE(dock.updates.isEmpty()) << "it does not wait";
    bus.carryEverythingOver();
    ASSERT_EQ(dock.updates.size(), 1);
    EXPECT_EQ(dock.updates.first().program, u"application://keelbright.desktop"_s);
    EXPECT_EQ(dock.updates.first().properties,
              QVariantMap({{u"progress"_s, 0.25}, {u"progress-visible"_s, true}}));
}

TEST_F(DesktopTaskBarTest, takesItAwayAgain)
{
    taskBar.showProgress(0.99);
    taskBar.hideProgress();
    bus.carryEverythingOver();
    ASSERT_EQ(dock.updates.size(), 2);
    EXPECT_EQ(dock.updates.last().program, u"application://keelbright.desktop"_s);
    EXPECT_EQ(dock.updates.last().properties,
              QVariantMap({{u"progress"_s, 0.0}, {u"progress-visible"_s, false}}));
}

TEST(DesktopTaskBar, showsNothingWithoutABus)
{
    DesktopTaskBar taskBar{QDBusConnection(u"no such connection"_s)};
    EXPECT_NO_THROW(taskBar.showProgress(0.5));
    EXPECT_NO_THROW(taskBar.hideProgress());
}

} // namespace keelbright

#include "DesktopTaskBarTests.moc"
