#include "KeelbrightCore/apps/iTunesLookupService.h"

#include "tests/support/EngineRun.h"
#include "tests/support/LoopbackServer.h"
#include "tests/support/Printing.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFutureWatcher>
#include <QNetworkProxy>
#include <QTimer>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Found = std::optional<iTunesAppInfo>;

const QByteArray inkBody = R"({"results": [{"trackName": "Ink", "description": "Draws."}]})";

class iTunesLookupServiceTests : public ::testing::Test
{
protected:
    iTunesLookupServiceTests()
    {
        // A proxy that the machine is set to would stand between the test and its server.
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    }

    QFuture<Found> start(const QString& name = u"Ink"_s, std::chrono::milliseconds timeout = 60s)
    {
        return iTunesLookupService::lookup(name, {.origin = m_server.origin(), .timeout = timeout});
    }

    Found lookup(const QString& name = u"Ink"_s, std::chrono::milliseconds timeout = 60s)
    {
        const QFuture<Found> future = start(name, timeout);
        EngineRun::turnUntil([&future] { return future.isFinished(); });
        return future.isFinished() ? future.result() : std::nullopt;
    }

    /// What was asked for, behind the method and before the protocol's version.
    [[nodiscard]] QByteArray askedFor(const QString& name)
    {
        m_server.setAnswer(LoopbackAnswer::http(inkBody));
        std::ignore = lookup(name);
        const QList<QByteArray> lines = m_server.requestLines();
        if (lines.isEmpty() || !lines.last().startsWith("GET ") || !lines.last().endsWith(" HTTP/1.1"))
            return "no request";
        return lines.last().chopped(9).sliced(4);
    }

    [[nodiscard]] static QByteArray inkBodyOf(qsizetype size)
    {
        const QByteArray frame =
            R"({"filler": "", "results": [{"trackName": "Ink", "description": "Draws."}]})";
        QByteArray body = frame;
        body.insert(12, QByteArray(size - frame.size(), 'x'));
        return body;
    }

    int m_argumentCount = 1;
    char m_name[6] = "tests";
    char* m_arguments[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
    LoopbackServer m_server;
};

} // namespace

TEST_F(iTunesLookupServiceTests, theAnswerComesAsARecord)
{
    m_server.setAnswer(LoopbackAnswer::http(inkBody));
    const Found info = lookup();
    ASSERT_TRUE(info.has_value());
    EXPECT_EQ(info->appName, u"Ink"_s);
    EXPECT_EQ(info->description, u"Draws."_s);
}

TEST_F(iTunesLookupServiceTests, theAppStoreIsAskedOverHttpsWithATimeoutOfAMinute)
{
    const iTunesLookupService::SearchService service;
    EXPECT_EQ(service.origin, u"https://itunes.apple.com"_s);
    EXPECT_EQ(service.timeout, 60s);
}

TEST_F(iTunesLookupServiceTests, theRequestHasItsFourKeysInTheirOrder)
{
    EXPECT_EQ(askedFor(u"Ink"_s), "/search?term=Ink&entity=macSoftware&limit=5&country=us");
    EXPECT_TRUE(m_server.requests().last().contains("\r\nHost: 127.0.0.1:"));
}

TEST_F(iTunesLookupServiceTests, aBlankInTheNameIsPercentEncoded)
{
    EXPECT_EQ(askedFor(u"Ink Pro"_s), "/search?term=Ink%20Pro&entity=macSoftware&limit=5&country=us");
}

TEST_F(iTunesLookupServiceTests, anAmpersandInTheNameSplitsTheQuery)
{
    EXPECT_EQ(askedFor(u"Pen & Ink=2"_s),
              "/search?term=Pen%20&%20Ink=2&entity=macSoftware&limit=5&country=us");
}

TEST_F(iTunesLookupServiceTests, everyAsciiCharacterIsEncodedOrNotAsItShouldBe)
{
    const QByteArray plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                             "-._~!$&'()*+,;=:@/?";
    QString name;
    QByteArray expected;
    for (char character = 1; character < 127; ++character) {
        name.append(QLatin1Char(character));
        expected += plain.contains(character) ? QByteArray(1, character)
                                              : '%' + QByteArray(1, character).toHex().toUpper();
    }
    EXPECT_EQ(askedFor(name), "/search?term=" + expected + "&entity=macSoftware&limit=5&country=us");
}

TEST_F(iTunesLookupServiceTests, otherCharactersAreEncodedAsUtf8)
{
    EXPECT_EQ(askedFor(u"Zeichnen für 日本 🙂"_s),
              "/search?term=Zeichnen%20f%C3%BCr%20%E6%97%A5%E6%9C%AC%20%F0%9F%99%82"
              "&entity=macSoftware&limit=5&country=us");
}

TEST_F(iTunesLookupServiceTests, whatLooksEncodedIsEncodedOnceMore)
{
    EXPECT_EQ(askedFor(u"100%41%"_s), "/search?term=100%2541%25&entity=macSoftware&limit=5&country=us");
    EXPECT_EQ(askedFor(u"a#b?c"_s), "/search?term=a%23b?c&entity=macSoftware&limit=5&country=us");
}

TEST_F(iTunesLookupServiceTests, anEmptyNameIsAskedForLikeAnyOther)
{
    EXPECT_EQ(askedFor(u""_s), "/search?term=&entity=macSoftware&limit=5&country=us");
}

TEST_F(iTunesLookupServiceTests, theStatusIsNotLookedAt)
{
    for (const char* status :
         {"201 Created", "400 Bad Request", "401 Unauthorized", "403 Forbidden", "404 Not Found", "418 Odd",
          "429 Too Many Requests", "500 Internal Server Error", "503 Service Unavailable", "599 Whatever"}) {
        m_server.setAnswer(LoopbackAnswer::http(inkBody, status));
        EXPECT_TRUE(lookup().has_value()) << status;
    }
}

TEST_F(iTunesLookupServiceTests, anErrorPageIsNothing)
{
    m_server.setAnswer(LoopbackAnswer::http("<html>Sorry</html>", "500 Internal Server Error"));
    EXPECT_EQ(lookup(), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, aRedirectionIsFollowed)
{
    m_server.setAnswers({LoopbackAnswer::http(inkBody + "{", "302 Found", "Location: /elsewhere?x=1\r\n"),
                         LoopbackAnswer::http(inkBody)});
    EXPECT_TRUE(lookup().has_value());
    EXPECT_EQ(m_server.requestLines().last(), "GET /elsewhere?x=1 HTTP/1.1");
}

TEST_F(iTunesLookupServiceTests, aRedirectionToItselfEndsWithNothing)
{
    m_server.setAnswer(LoopbackAnswer::http("", "302 Found", "Location: /search\r\n"));
    EXPECT_EQ(lookup(), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, aBodyWithoutALengthEndsWithTheConnection)
{
    m_server.setAnswer({.pieces = {"HTTP/1.1 200 OK\r\n\r\n", inkBody}});
    EXPECT_TRUE(lookup().has_value());
}

TEST_F(iTunesLookupServiceTests, aBodyInPiecesIsPutTogether)
{
    LoopbackAnswer answer = LoopbackAnswer::http("");
    answer.pieces = {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"};
    for (const char byte : inkBody)
        answer.pieces.append("1\r\n" + QByteArray(1, byte) + "\r\n");
    answer.pieces.append("0\r\n\r\n");
    m_server.setAnswer(answer);
    EXPECT_TRUE(lookup().has_value());
}

TEST_F(iTunesLookupServiceTests, aCutBodyIsNothingThoughWhatCameReadsWhole)
{
    // One byte is missing, but it would only be a line feed.
    const QByteArray length = QByteArray::number(inkBody.size() + 1);
    for (const char* status : {"200 OK", "500 Internal Server Error"}) {
        m_server.setAnswer(
            {.pieces = {QByteArray("HTTP/1.1 ") + status + "\r\nContent-Length: " + length + "\r\n\r\n",
                        inkBody},
             .pause = 20ms});
        EXPECT_EQ(lookup(), std::nullopt) << status;
    }
}

TEST_F(iTunesLookupServiceTests, aBodyOfTenMegabytesIsRead)
{
    m_server.setAnswer(LoopbackAnswer::http(inkBodyOf(10'000'000)));
    EXPECT_TRUE(lookup().has_value());
}

TEST_F(iTunesLookupServiceTests, aBodyAboveTheLimitIsDropped)
{
    m_server.setAnswer(LoopbackAnswer::http(inkBodyOf(iTunesLookupService::maximumBodyBytes)));
    EXPECT_TRUE(lookup().has_value());
    m_server.setAnswer(LoopbackAnswer::http(inkBodyOf(iTunesLookupService::maximumBodyBytes + 1)));
    EXPECT_EQ(lookup(), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, aBodyWithoutEndIsDroppedInTheMiddle)
{
    LoopbackAnswer answer{.pieces = {"HTTP/1.1 200 OK\r\n\r\n"}, .closes = false};
    for (int i = 0; i < 20; ++i)
        answer.pieces.append(QByteArray(1024 * 1024, ' '));
    m_server.setAnswer(answer);
    EXPECT_EQ(lookup(), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, aClosedPortIsNothing)
{
    const QString origin = m_server.origin();
    m_server.close();
    const QFuture<Found> future = iTunesLookupService::lookup(u"Ink"_s, {.origin = origin});
    EngineRun::turnUntil([&future] { return future.isFinished(); });
    EXPECT_EQ(future.result(), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, aConnectionThatIsClosedAtOnceIsNothing)
{
    m_server.setAnswer({});
    EXPECT_EQ(lookup(), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, whatIsNoHttpIsNothing)
{
    m_server.setAnswer({.pieces = {"220 mail ready\r\n\r\n" + inkBody}});
    EXPECT_EQ(lookup(), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, whatIsNoUrlIsNothingAtOnce)
{
    const QFuture<Found> future = iTunesLookupService::lookup(u"Ink"_s, {.origin = u"http://["_s});
    ASSERT_TRUE(future.isFinished());
    EXPECT_EQ(future.result(), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, aServerThatStaysSilentIsGivenUp)
{
    m_server.setAnswer({.closes = false});
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(lookup(u"Ink"_s, 300ms), std::nullopt);
    EXPECT_GE(timer.elapsed(), 200);
}

TEST_F(iTunesLookupServiceTests, aServerThatFallsSilentInTheMiddleIsGivenUp)
{
    m_server.setAnswer(
        {.pieces = {"HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n", inkBody}, .closes = false});
    EXPECT_EQ(lookup(u"Ink"_s, 300ms), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, aSlowAnswerIsGivenUpAtTheDeadlineThoughMoreArrives)
{
    LoopbackAnswer answer = LoopbackAnswer::http("");
    answer.pieces = {"HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(inkBody.size()) + "\r\n\r\n"};
    for (const char byte : inkBody)
        answer.pieces.append(QByteArray(1, byte));
    answer.pause = 50ms;
    m_server.setAnswer(answer);
    EXPECT_EQ(lookup(u"Ink"_s, 500ms), std::nullopt);
}

TEST_F(iTunesLookupServiceTests, theMainThreadIsNotHeldWhileTheServerThinks)
{
    LoopbackAnswer answer = LoopbackAnswer::http(inkBody);
    answer.pause = 300ms;
    m_server.setAnswer(answer);
    const QFuture<Found> future = start();
    EXPECT_FALSE(future.isFinished());
    EngineRun::turnUntil([&future] { return future.isFinished(); });
    EXPECT_TRUE(future.result().has_value());
}

TEST_F(iTunesLookupServiceTests, eachCallIsARequestOfItsOwn)
{
    m_server.setAnswer(LoopbackAnswer::http(inkBody, "200 OK", "Cache-Control: max-age=86400\r\n"));
    EXPECT_TRUE(lookup().has_value());
    EXPECT_TRUE(lookup().has_value());
    EXPECT_EQ(m_server.requests().size(), 2);
}

TEST_F(iTunesLookupServiceTests, requestsUnderWayAtOnceKeepTheirAnswersApart)
{
    const QByteArray other = R"({"results": [{"trackName": "Pen", "description": "Writes."}]})";
    m_server.setAnswers({LoopbackAnswer::http(inkBody), LoopbackAnswer::http(other)});
    const QFuture<Found> first = start();
    EngineRun::turnUntil([this] { return m_server.requests().size() == 1; });
    const QFuture<Found> second = start(u"Pen"_s);
    EngineRun::turnUntil([&] { return first.isFinished() && second.isFinished(); });
    EXPECT_EQ(first.result()->description, u"Draws."_s);
    EXPECT_EQ(second.result()->description, u"Writes."_s);
}

TEST_F(iTunesLookupServiceTests, anOwnerDestroyedInTheMiddleReceivesNothing)
{
    LoopbackAnswer answer = LoopbackAnswer::http(inkBody);
    answer.pause = 50ms;
    m_server.setAnswer(answer);
    bool hasHeard = false;
    auto owner = std::make_unique<QObject>();
    auto* const watcher = new QFutureWatcher<Found>(owner.get());
    QObject::connect(watcher, &QFutureWatcherBase::finished, owner.get(), [&hasHeard] { hasHeard = true; });
    const QFuture<Found> future = start();
    watcher->setFuture(future);
    EngineRun::turnUntil([this] { return !m_server.requests().isEmpty(); });
    owner.reset();
    EngineRun::turnUntil([&future] { return future.isFinished(); });
    QCoreApplication::processEvents();
    EXPECT_FALSE(hasHeard);
    EXPECT_TRUE(future.result().has_value());
}

TEST_F(iTunesLookupServiceTests, aCancelledFutureEndsTheRequest)
{
    m_server.setAnswer({.closes = false});
    QFuture<Found> future = start();
    EngineRun::turnUntil([this] { return !m_server.requests().isEmpty(); });
    future.cancel();
    EngineRun::turnUntil([&future] { return future.isFinished(); });
    EXPECT_EQ(future.resultCount(), 0);
}

TEST(iTunesLookupServiceAtTheEnd, aProgramThatQuitsInTheMiddleCancelsTheFuture)
{
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    int argumentCount = 1;
    char name[] = "tests";
    char* arguments[] = {name, nullptr};
    auto application = std::make_unique<QCoreApplication>(argumentCount, arguments);
    auto server = std::make_unique<LoopbackServer>();
    server->setAnswer({.closes = false});
    const QFuture<Found> future = iTunesLookupService::lookup(u"Ink"_s, {.origin = server->origin()});
    EngineRun::turnUntil([&server] { return !server->requests().isEmpty(); });
    QElapsedTimer timer;
    timer.start();
    QTimer::singleShot(0, application.get(), &QCoreApplication::quit);
    QCoreApplication::exec();
    server.reset();
    application.reset();
    EXPECT_LT(timer.elapsed(), 2'000);
    EXPECT_TRUE(future.isFinished());
    EXPECT_TRUE(future.isCanceled());
}

} // namespace keelbright::testing
