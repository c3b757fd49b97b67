#include "Keelbright/screens/shell/DesktopWorkspace.h"

#include "tests/support/Printing.h"
#include "tests/support/PrivateBus.h"

#include <QDBusMessage>
#include <QDesktopServices>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

namespace keelbright {

/// A file browser that the test offers on the bus.
class FakeFileBrowser : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;
    QStringList startupIDs;

public Q_SLOTS:

    void ShowItems(const QStringList& uris, const QString& startupID)
    {
        shown.append(uris);
        startupIDs.append(startupID);
    }
};

/// Takes the place of the desktop's opener, and records what it is asked to open.
class FakeOpener : public QObject
{
    Q_OBJECT

public:
    FakeOpener() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }

    ~FakeOpener() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    FakeOpener(const FakeOpener&) = delete;
    FakeOpener& operator=(const FakeOpener&) = delete;

    QByteArrayList opened;

public Q_SLOTS:

    void open(const QUrl& url) { opened.append(url.toEncoded()); }
};

namespace {

using namespace Qt::StringLiterals;

constexpr int patience = 60'000; // milliseconds

class DesktopWorkspaceTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!bus.reasonMissing().empty())
            GTEST_SKIP() << bus.reasonMissing();
        ASSERT_TRUE(bus.client().isConnected());
    }

    void startBrowser()
    {
        ASSERT_TRUE(bus.server().registerObject(u"/org/freedesktop/FileManager1"_s, &browser,
                                                QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(bus.server().registerService(u"org.freedesktop.FileManager1"_s));
    }

    FakeFileBrowser browser;
    FakeOpener opener;
    testing::PrivateBus bus;
    FileURL item = FileURL::fromPath(u"/Users/mira/Caches/über alles [1]#"_s);
};

} // namespace

TEST_F(DesktopWorkspaceTest, asksTheFileBrowserToShowTheItem)
{
    startBrowser();
    DesktopWorkspace workspace(bus.client());
    workspace.reveal(item);
    EXPECT_TRUE(browser.shown.isEmpty()); // reveal() does not wait
    ASSERT_TRUE(QTest::qWaitFor([this] { return !browser.shown.isEmpty(); }, patience));
    bus.carryEverythingOver();
    EXPECT_EQ(browser.shown, QStringList{u"file:///Users/mira/Caches/%C3%BCber%20alles%20%5B1%5D%23"_s});
    EXPECT_EQ(browser.startupIDs, QStringList{u""_s});
    EXPECT_EQ(opener.opened, QByteArrayList());
}

TEST_F(DesktopWorkspaceTest, passesOnANameThatIsNotUtf8)
{
    startBrowser();
    DesktopWorkspace workspace(bus.client());
    workspace.reveal(FileURL::fromNativePath("/tmp/caf\xE9"));
    ASSERT_TRUE(QTest::qWaitFor([this] { return !browser.shown.isEmpty(); }, patience));
    EXPECT_EQ(browser.shown, QStringList{u"file:///tmp/caf%E9"_s});
}

TEST_F(DesktopWorkspaceTest, opensTheFolderIfNoFileBrowserIsOnTheBus)
{
    DesktopWorkspace workspace(bus.client());
    workspace.reveal(item);
    EXPECT_EQ(opener.opened, QByteArrayList()); // reveal() does not wait
    ASSERT_TRUE(QTest::qWaitFor([this] { return !opener.opened.isEmpty(); }, patience));
    EXPECT_EQ(opener.opened, QByteArrayList{"file:///Users/mira/Caches"});
}

TEST_F(DesktopWorkspaceTest, opensTheFolderIfTheFileBrowserCannotShowItems)
{
    ASSERT_TRUE(bus.server().registerService(u"org.freedesktop.FileManager1"_s));
    DesktopWorkspace workspace(bus.client());
    workspace.reveal(item);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !opener.opened.isEmpty(); }, patience));
    EXPECT_EQ(opener.opened, QByteArrayList{"file:///Users/mira/Caches"});
}

TEST_F(DesktopWorkspaceTest, mayBeDestroyedBeforeTheAnswer)
{
    {
        DesktopWorkspace workspace(bus.client());
        workspace.reveal(item);
    }
    bus.carryEverythingOver();
    EXPECT_EQ(opener.opened, QByteArrayList());
}

TEST(DesktopWorkspace, opensTheFolderAtOnceWithoutABus)
{
    const FakeOpener opener;
    DesktopWorkspace workspace{QDBusConnection(u"no such connection"_s)};
    workspace.reveal(FileURL::fromPath(u"/Users/mira/notes.txt"_s));
    EXPECT_EQ(opener.opened, QByteArrayList{"file:///Users/mira"});
}

TEST(DesktopWorkspace, opensByTheExactBytes)
{
    const FakeOpener opener;
    DesktopWorkspace workspace{QDBusConnection(u"no such connection"_s)};
    workspace.open(FileURL::fromNativePath("/tmp/caf\xE9 1"));
    EXPECT_EQ(opener.opened, QByteArrayList{"file:///tmp/caf%E9%201"});
}

} // namespace keelbright

#include "DesktopWorkspaceTests.moc"
