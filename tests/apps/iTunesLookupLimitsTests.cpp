#include "KeelbrightCore/apps/iTunesLookupService.h"
#include "tests/support/EngineRun.h"
#include "tests/support/FloodServer.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/Printing.h"
#include "tests/support/StallProbe.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFutureWatcher>
#include <QNetworkProxy>
#include <QTimer>
#include <gtest/gtest.h>

// Answers without end, and very large ones.

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Found = std::optional<iTunesAppInfo>;

class iTunesLookupLimitsTests : public ::testing::Test
{
protected:
    iTunesLookupLimitsTests()
    {
        // A proxy that the machine is set to would stand between the test and its server.
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    }

    static Found lookup(const QString& origin, std::chrono::milliseconds timeout = 60s)
    {
        const QFuture<Found> future =
            iTunesLookupService::lookup(u"Ink"_s, {.origin = origin, .timeout = timeout});
        EXPECT_TRUE(waitFor(future, 100'000));
        return future.isFinished() ? future.result() : std::nullopt;
    }

    static bool waitFor(const QFuture<Found>& future, int milliseconds)
    {
        QEventLoop loop;
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        QFutureWatcher<Found> watcher;
        QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, &QEventLoop::quit);
        watcher.setFuture(future);
        loop.exec();
        return future.isFinished();
    }

    /// Results of this size, among them one for "Ink".
    static QByteArray bodyOf(qsizetype size)
    {
        QByteArray body = R"({"results": [{"trackName": "Ink", "description": "Draws."})";
        while (body.size() < size - 30)
            body += R"(,{"a":1,"b":2,"c":[1,2,3]})";
        return body + "]}";
    }

    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
};

const QByteArray headerStart = "HTTP/1.1 200 OK\r\n";
const QByteArray headerLine = "X-Filler: and so on\r\n";
constexpr double longestStall = 0.1; // seconds
/// What the system keeps for either side of a connection is some megabytes.
constexpr qint64 keptBySystem = qint64{16} * 1024 * 1024;

} // namespace

TEST_F(iTunesLookupLimitsTests, aBodyWithoutEndTakesLittleMoreThanTheLimitAndStallsNobody)
{
    const FloodServer server(headerStart + "\r\n", QByteArray(256 * 1024, ' '));
    const StallProbe stalls;
    EXPECT_EQ(lookup(server.origin()), std::nullopt);
    EngineRun::turnUntil([&server] { return server.isClosed(); });
    EXPECT_GT(server.sentBytes(), iTunesLookupService::maximumBodyBytes);
    EXPECT_LT(server.sentBytes(), iTunesLookupService::maximumBodyBytes + keptBySystem);
    EXPECT_LT(stalls.longestSeconds(), longestStall);
    RecordProperty("sentBytes", std::to_string(server.sentBytes()));
    RecordProperty("longestStallMilliseconds", static_cast<int>(stalls.longestSeconds() * 1'000));
}

TEST_F(iTunesLookupLimitsTests, aMainThreadThatIsBusyReceivesNoMoreThanTheLimitMeanwhile)
{
    const FloodServer server(headerStart + "\r\n", QByteArray(256 * 1024, ' '));
    const QFuture<Found> future = iTunesLookupService::lookup(u"Ink"_s, {.origin = server.origin()});
    while (!server.isClosed()) {
        ASSERT_LT(server.sentBytes(), iTunesLookupService::maximumBodyBytes + keptBySystem);
        std::this_thread::sleep_for(10ms);
    }
    EXPECT_TRUE(waitFor(future, 60'000));
    EXPECT_EQ(future.result(), std::nullopt);
}

TEST_F(iTunesLookupLimitsTests, aLargeAnswerIsReadWithoutAStall)
{
    LoopbackServer server;
    server.setAnswer(LoopbackAnswer::http(bodyOf(15'000'000)));
    const StallProbe stalls;
    EXPECT_TRUE(lookup(server.origin()).has_value());
    EXPECT_LT(stalls.longestWorkSeconds(), longestStall);
}

TEST_F(iTunesLookupLimitsTests, aHeaderThatNeverEndsIsOverAfterTheTimeout)
{
    const FloodServer server(headerStart, headerLine, 20ms);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(lookup(server.origin(), 500ms), std::nullopt);
    EXPECT_GE(timer.elapsed(), 400);
    EngineRun::turnUntil([&server] { return server.isClosed(); });
}

TEST_F(iTunesLookupLimitsTests, aFloodBeforeTheBodyIsDroppedAtItsLimit)
{
    const QByteArray lines = headerLine.repeated(1'000);
    const QByteArray preliminary = QByteArray("HTTP/1.1 100 Continue\r\n\r\n").repeated(1'000);
    const std::pair<QByteArray, QByteArray> floods[] = {
        {headerStart, lines},                                  // lines without end
        {headerStart + "X-Filler: ", QByteArray(10'000, 'x')}, // a line without end
        {"HTTP/1.1 200 ", QByteArray(10'000, 'x')},            // a reason without end
        {preliminary, preliminary},                            // answers before the answer without end
        {headerStart + "Transfer-Encoding: chunked\r\n\r\n0\r\n", lines},
        {headerStart + "Transfer-Encoding: chunked\r\n\r\n", QByteArray(10'000, '0')},
    };
    for (const auto& [start, piece] : floods) {
        SCOPED_TRACE(start.left(40).toStdString());
        const FloodServer server(start, piece);
        EXPECT_EQ(lookup(server.origin()), std::nullopt);
        EngineRun::turnUntil([&server] { return server.isClosed(); });
        EXPECT_LT(server.sentBytes(), keptBySystem);
    }
}

TEST_F(iTunesLookupLimitsTests, whatComesSlowlyBeforeTheAnswerIsOverAfterTheTimeout)
{
    const FloodServer server("HTTP/1.1 100 Continue\r\n\r\n", "HTTP/1.1 102 Processing\r\n\r\n", 20ms);
    EXPECT_EQ(lookup(server.origin(), 500ms), std::nullopt);
    EngineRun::turnUntil([&server] { return server.isClosed(); });
    EXPECT_LT(server.sentBytes(), 10'000);
}

TEST_F(iTunesLookupLimitsTests, slowRedirectionsAreOverAfterTheTimeout)
{
    LoopbackServer server;
    LoopbackAnswer answer = LoopbackAnswer::http("", "302 Found", "Location: /search\r\n");
    answer.pause = 200ms;
    server.setAnswer(answer);
    EXPECT_EQ(lookup(server.origin(), 500ms), std::nullopt);
    EXPECT_LE(server.requests().size(), 4);
}

/// Takes a minute: run it with KEELBRIGHT_LONG_TESTS set.
TEST_F(iTunesLookupLimitsTests, aHeaderThatNeverEndsIsOverAfterTheDefaultTimeout)
{
    if (!qEnvironmentVariableIsSet("KEELBRIGHT_LONG_TESTS"))
        GTEST_SKIP() << "it takes a minute: set KEELBRIGHT_LONG_TESTS";
    const FloodServer server(headerStart, headerLine, 20ms);
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(lookup(server.origin()), std::nullopt);
    EXPECT_GE(timer.elapsed(), 59'000);
    EXPECT_LT(timer.elapsed(), 75'000);
}

} // namespace keelbright::testing
