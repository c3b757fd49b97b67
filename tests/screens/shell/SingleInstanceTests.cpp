#include "Keelbright/screens/shell/SingleInstance.h"
#include "tests/support/TestMac.h"

#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QtConcurrent>
#include <gtest/gtest.h>
#include <optional>
#include <unistd.h>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Start = SingleInstance::Start;

constexpr auto longPatience = 60s; // of a machine that is busy

class SingleInstanceTest : public ::testing::Test
{
protected:
    /// Another start of the program, beside the event loop of this one.
    [[nodiscard]] QFuture<Start> startAnother(std::optional<WindowAction> action = std::nullopt) const
    {
        return QtConcurrent::run([folder = folder, action] {
            SingleInstance another(folder);
            return another.start(action, longPatience);
        });
    }

    static Start resultOf(const QFuture<Start>& start)
    {
        while (!start.isFinished())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 10);
        return start.result();
    }

    /// The answer that the first gives to this text on its socket.
    [[nodiscard]] static QByteArray answerTo(const SingleInstance& first, const QByteArray& text)
    {
        QLocalSocket peer;
        peer.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
        peer.connectToServer(first.socketName());
        EXPECT_TRUE(peer.waitForConnected());
        const QSignalSpy left(&peer, &QLocalSocket::disconnected);
        peer.write(text);
        EXPECT_TRUE(QTest::qWaitFor([&] { return left.count() == 1; }, 60'000));
        return peer.readAll();
    }

    testing::TestMac mac;
    FileURL folder = mac.makeFolder("settings");
};

} // namespace

TEST_F(SingleInstanceTest, theFirstIsFirstAndGetsEachRequest)
{
    SingleInstance first(folder);
    const QSignalSpy requests(&first, &SingleInstance::activationRequested);
    EXPECT_EQ(first.start(), Start::first);
    EXPECT_EQ(resultOf(startAnother()), Start::handedOver);
    EXPECT_EQ(resultOf(startAnother()), Start::handedOver);
    EXPECT_EQ(requests.count(), 2);
}

TEST_F(SingleInstanceTest, anotherFolderIsAnotherProgram)
{
    SingleInstance first(folder);
    EXPECT_EQ(first.start(), Start::first);
    SingleInstance other(mac.makeFolder("other"));
    EXPECT_EQ(other.start(), Start::first);
}

TEST_F(SingleInstanceTest, aLinkToTheFolderIsTheSameProgram)
{
    SingleInstance first(folder);
    EXPECT_EQ(first.start(), Start::first);
    const FileURL link = mac.root().appending(u"link"_s);
    ASSERT_TRUE(QFile::link(folder.path(), link.path()));
    folder = link;
    EXPECT_EQ(resultOf(startAnother()), Start::handedOver);
}

TEST_F(SingleInstanceTest, aFirstThatDoesNotAnswerIsReported)
{
    SingleInstance first(folder);
    EXPECT_EQ(first.start(), Start::first);
    // Its event loop stands still meanwhile.
    SingleInstance another(folder);
    EXPECT_EQ(another.start(std::nullopt, 300ms), Start::unanswered);
}

TEST_F(SingleInstanceTest, aFirstThatIsJustStartingAnswersOnceItsEventLoopRuns)
{
    SingleInstance first(folder);
    const QSignalSpy requests(&first, &SingleInstance::activationRequested);
    EXPECT_EQ(first.start(), Start::first);
    const QFuture<Start> another = startAnother();
    QThread::msleep(300); // the first is loading
    EXPECT_FALSE(another.isFinished());
    EXPECT_EQ(resultOf(another), Start::handedOver);
    EXPECT_EQ(requests.count(), 1);
}

TEST_F(SingleInstanceTest, aFirstWithoutItsSocketYetIsWaitedFor)
{
    std::optional<FolderLock> lock(folder);
    ASSERT_EQ(lock->tryToTake(), FolderLock::Outcome::taken);
    const QFuture<Start> another = startAnother();
    QThread::msleep(100);
    EXPECT_FALSE(another.isFinished());
    lock.reset();
    EXPECT_EQ(resultOf(another), Start::first);
}

TEST_F(SingleInstanceTest, aFirstThatEndsMakesRoom)
{
    std::optional<SingleInstance> first(folder);
    EXPECT_EQ(first->start(), Start::first);
    first->stopListening();
    const QFuture<Start> another = startAnother();
    QThread::msleep(100); // the lock is still held
    EXPECT_FALSE(another.isFinished());
    first.reset();
    EXPECT_EQ(resultOf(another), Start::first);
}

TEST_F(SingleInstanceTest, withoutAFolderTheSocketKeepsItOne)
{
    folder = mac.root().appending(u"none"_s);
    SingleInstance first(folder);
    EXPECT_EQ(first.start(), Start::first);
    EXPECT_EQ(resultOf(startAnother()), Start::handedOver);
}

TEST_F(SingleInstanceTest, anotherUsersRequestIsRefused)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "only root can ask as another user";
    SingleInstance first(folder);
    const QSignalSpy requests(&first, &SingleInstance::activationRequested);
    EXPECT_EQ(first.start(), Start::first);
    const QString script = u"import socket, sys\n"
                           "peer = socket.socket(socket.AF_UNIX)\n"
                           "peer.connect('\\0' + sys.argv[1])\n"
                           "print('connected', flush=True)\n"
                           "peer.send(b'show\\n')\n"
                           "print(peer.recv(10))\n"_s;
    QProcess other;
    other.start(u"runuser"_s,
                {u"-u"_s, u"nobody"_s, u"--"_s, u"/usr/bin/python3"_s, u"-c"_s, script, first.socketName()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.state() == QProcess::NotRunning; }, 60'000));
    const QByteArray output = other.readAllStandardOutput();
    EXPECT_TRUE(output.startsWith("connected\n"));
    EXPECT_FALSE(output.contains("shown"));
    EXPECT_EQ(requests.count(), 0);
}

TEST_F(SingleInstanceTest, otherTextIsNoRequest)
{
    SingleInstance first(folder);
    const QSignalSpy requests(&first, &SingleInstance::activationRequested);
    EXPECT_EQ(first.start(), Start::first);
    for (const QByteArray& text :
         {QByteArray("hide and more\n"), QByteArray("shows\n"), QByteArray("\n"), QByteArray(100'000, 'x')})
        EXPECT_EQ(answerTo(first, text), QByteArray());
    EXPECT_EQ(requests.count(), 0);
}

TEST_F(SingleInstanceTest, anActionReachesTheFirst)
{
    SingleInstance first(folder);
    const QSignalSpy requests(&first, &SingleInstance::activationRequested);
    EXPECT_EQ(first.start(WindowAction::backUpNow), Start::first);
    EXPECT_EQ(requests.count(), 0);
    EXPECT_EQ(resultOf(startAnother(WindowAction::storageBrowser)), Start::handedOver);
    EXPECT_EQ(resultOf(startAnother()), Start::handedOver);
    ASSERT_EQ(requests.count(), 2);
    const auto actionOf = [&](int request) {
        return requests.at(request).first().value<std::optional<WindowAction>>();
    };
    EXPECT_EQ(actionOf(0), WindowAction::storageBrowser);
    EXPECT_EQ(actionOf(1), std::nullopt);
}

TEST_F(SingleInstanceTest, anActionOfAnotherVersionStillAsksForTheWindow)
{
    SingleInstance first(folder);
    const QSignalSpy requests(&first, &SingleInstance::activationRequested);
    EXPECT_EQ(first.start(), Start::first);
    EXPECT_EQ(answerTo(first, "show restore-browser\n"), QByteArray("shown\n"));
    ASSERT_EQ(requests.count(), 1);
    EXPECT_EQ(requests.first().first().value<std::optional<WindowAction>>(), std::nullopt);
}

} // namespace keelbright
