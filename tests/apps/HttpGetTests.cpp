// Requests to a real HTTP server on this machine that answers in every bad way.

#include "tests/apps/HttpGetTestCase.h"
#include "tests/support/EnvironmentVariable.h"
#include "tests/support/FloodServer.h"

#include <algorithm>
#include <numeric>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QByteArray start200 = "HTTP/1.1 200 OK\r\n";

/// In the form that the content encoding "deflate" stands for.
QByteArray deflated(const QByteArray& data)
{
    constexpr qsizetype sizeInFront = 4; // which Qt adds
    return qCompress(data).sliced(sizeInFront);
}

QByteArray littleEndian(quint32 value)
{
    QByteArray bytes;
    for (int i = 0; i < 4; ++i, value >>= 8)
        bytes.append(static_cast<char>(value & 0xff));
    return bytes;
}

quint32 crc32Of(const QByteArray& data)
{
    quint32 sum = 0xffffffff;
    for (const char byte : data) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xedb88320 : 0);
    }
    return ~sum;
}

/// In the form that the content encoding "gzip" stands for.
QByteArray gzipped(const QByteArray& data)
{
    const QByteArray head("\x1f\x8b\x08\0\0\0\0\0\0\x03", 10);
    // Without the frame of the other form.
    return head + deflated(data).sliced(2).chopped(4) + littleEndian(crc32Of(data)) +
           littleEndian(static_cast<quint32>(data.size()));
}

class HttpGetTests : public HttpGetTestCase
{
protected:
    [[nodiscard]] Body getAnswer(const LoopbackAnswer& answer,
                                 std::chrono::milliseconds deadline = noDeadline)
    {
        m_server.setAnswer(answer);
        return get(m_server.origin() + u"/path?query"_s, deadline);
    }

    [[nodiscard]] Body getBody(const QByteArray& body, const QByteArray& headers)
    {
        return getAnswer(LoopbackAnswer::http(body, "200 OK", headers));
    }

    /// An answer whose fields, without its status line, take this many bytes.
    [[nodiscard]] static LoopbackAnswer withFieldsOf(qint64 bytes)
    {
        constexpr qint64 longest = 50'000;
        QByteArray fields = "Content-Length: 4\r\n";
        while (fields.size() < bytes) {
            const qint64 size = qMin(bytes - fields.size(), longest);
            // No field that is left is shorter than a name and an end.
            const qint64 used = bytes - fields.size() - size < 100 ? bytes - fields.size() : size;
            fields += "X-F: " + QByteArray(used - 7, 'x') + "\r\n";
        }
        return {.pieces = {start200 + fields + "\r\n", "body"}};
    }

    LoopbackServer m_server;
};

} // namespace

TEST_F(HttpGetTests, theBodyComesWhole)
{
    EXPECT_EQ(getBody("body", {}), "body");
    EXPECT_EQ(getBody("", {}), "");
    ASSERT_EQ(m_server.requestLines().value(0), "GET /path?query HTTP/1.1");
    const QByteArray request = m_server.requests().first();
    EXPECT_TRUE(request.contains("\r\nUser-Agent: Keelbright/")) << request.constData();
    EXPECT_TRUE(request.contains("\r\nAccept-Encoding: gzip, deflate\r\n")) << request.constData();
}

TEST_F(HttpGetTests, answersBeforeTheAnswerArePassedOver)
{
    EXPECT_EQ(
        getAnswer({.pieces = {"HTTP/1.1 103 Early Hints\r\nLink: x\r\n\r\n", start200 + "\r\n", "body"}}),
        "body");
}

TEST_F(HttpGetTests, aCompressedBodyIsUnpacked)
{
    const QByteArray body = QByteArray("some text ").repeated(1'000);
    EXPECT_EQ(getBody(gzipped(body), "Content-Encoding: gzip\r\n"), body);
    EXPECT_EQ(getBody(deflated(body), "Content-Encoding: deflate\r\n"), body);
}

TEST_F(HttpGetTests, aDamagedCompressedBodyIsNothing)
{
    QByteArray packed = gzipped(QByteArray("some text ").repeated(1'000));
    packed[packed.size() - 6] = static_cast<char>(packed.at(packed.size() - 6) ^ 1); // in its checksum
    EXPECT_EQ(getBody(packed, "Content-Encoding: gzip\r\n"), std::nullopt);
    EXPECT_EQ(getBody("no such thing", "Content-Encoding: gzip\r\n"), std::nullopt);
}

TEST_F(HttpGetTests, aSmallBodyThatUnpacksAboveTheLimitIsDropped)
{
    const QByteArray bomb = gzipped(QByteArray(4 * maximumBody, ' '));
    ASSERT_LT(bomb.size(), maximumBody);
    EXPECT_EQ(getBody(bomb, "Content-Encoding: gzip\r\n"), std::nullopt);
}

TEST_F(HttpGetTests, aBodyIsAsLongAsItsLimitAndNoLonger)
{
    const QByteArray body(maximumBody, 'x');
    EXPECT_EQ(getBody(body, {}), body);
    EXPECT_EQ(getBody(body + 'x', {}), std::nullopt);
    EXPECT_EQ(getAnswer({.pieces = {start200 + "\r\n", body}}), body) << "up to the end of the connection";
    EXPECT_EQ(getAnswer({.pieces = {start200 + "\r\n", body + 'x'}}), std::nullopt);
}

TEST_F(HttpGetTests, aHeadIsAsLongAsItsLimitAndNoLonger)
{
    const qint64 most = HttpGet::maximumHeadBytes - start200.size() - 2;
    EXPECT_EQ(getAnswer(withFieldsOf(most)), "body");
    EXPECT_EQ(getAnswer(withFieldsOf(most + 1)), std::nullopt);
}

TEST_F(HttpGetTests, headsOfRedirectionsCountTogether)
{
    const LoopbackAnswer onward = LoopbackAnswer::http(
        "", "302 Found", "Location: /next\r\nX-Filler: " + QByteArray(50'000, 'x') + "\r\n");
    m_server.setAnswer(onward);
    EXPECT_EQ(get(m_server.origin()), std::nullopt);
    EXPECT_EQ(m_server.requests().size(), 6);
}

TEST_F(HttpGetTests, aHeadWithoutEndIsOverAtItsLimitAndAtTheDeadline)
{
    const FloodServer fast(start200, QByteArray("X-Filler: and so on\r\n").repeated(1'000));
    EXPECT_EQ(get(fast.origin()), std::nullopt);
    const FloodServer slow(start200, "X-Filler: and so on\r\n", 20ms);
    EXPECT_EQ(get(slow.origin(), 300ms), std::nullopt);
}

TEST_F(HttpGetTests, aBodyWithoutEndIsOverAtItsLimitAndAtTheDeadline)
{
    const FloodServer fast(start200 + "\r\n", QByteArray(100'000, ' '));
    EXPECT_EQ(get(fast.origin()), std::nullopt);
    const FloodServer slow(start200 + "\r\n", " ", 20ms);
    EXPECT_EQ(get(slow.origin(), 300ms), std::nullopt);
    const FloodServer inPieces(start200 + "Transfer-Encoding: chunked\r\n\r\n", "1\r\nx\r\n", 20ms);
    EXPECT_EQ(get(inPieces.origin(), 300ms), std::nullopt);
}

TEST_F(HttpGetTests, aServerThatFallsSilentIsGivenUpAtTheDeadline)
{
    const QList<QList<QByteArray>> beginnings = {
        {}, {"HTTP/1.1"}, {start200}, {start200 + "Content-Length: 100\r\n\r\n", "bo"}};
    for (const QList<QByteArray>& pieces : beginnings)
        EXPECT_EQ(getAnswer({.pieces = pieces, .closes = false}, 300ms), std::nullopt) << pieces.size();
}

TEST_F(HttpGetTests, aConnectionThatBreaksOffInTheMiddleIsNothing)
{
    const QList<QList<QByteArray>> beginnings = {
        {},
        {"HTTP/1.1"},
        {start200},
        {start200 + "Content-Length: 100\r\n\r\n", "bo"},
        {start200 + "Transfer-Encoding: chunked\r\n\r\n4\r\nbody\r\n"},
    };
    for (const QList<QByteArray>& pieces : beginnings)
        EXPECT_EQ(getAnswer({.pieces = pieces}), std::nullopt) << pieces.value(0).constData();
}

TEST_F(HttpGetTests, whatIsNoAnswerIsNothing)
{
    for (const char* text : {"\r\n", "220 mail ready\r\n\r\nbody", "HTTP/1.1 abc\r\n\r\nbody",
                             "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nxyz\r\nbody"})
        EXPECT_EQ(getAnswer({.pieces = {text}}), std::nullopt) << text;
}

TEST_F(HttpGetTests, aRedirectionToItselfEndsAfterTwentyFollowed)
{
    EXPECT_EQ(getAnswer(LoopbackAnswer::http("", "302 Found", "Location: /path?query\r\n")), std::nullopt);
    EXPECT_EQ(m_server.requests().size(), 21);
}

TEST_F(HttpGetTests, onlyTheBodyBehindARedirectionIsKept)
{
    m_server.setAnswers({LoopbackAnswer::http("before", "307 Temporary Redirect", "Location: /next\r\n"),
                         LoopbackAnswer::http("behind")});
    EXPECT_EQ(get(m_server.origin()), "behind");
    EXPECT_EQ(m_server.requestLines().last(), "GET /next HTTP/1.1");
}

TEST_F(HttpGetTests, nothingButHttpIsAskedOrFollowed)
{
    for (const char* url : {"", "file:///etc/hosts", "ftp://127.0.0.1/", "http://", "nonsense"})
        EXPECT_EQ(get(QString::fromLatin1(url)), std::nullopt) << url;
    EXPECT_EQ(getAnswer(LoopbackAnswer::http("", "302 Found", "Location: file:///etc/hosts\r\n")),
              std::nullopt);
}

TEST_F(HttpGetTests, aClosedPortIsNothing)
{
    const QString origin = m_server.origin();
    m_server.close();
    EXPECT_EQ(get(origin), std::nullopt);
}

TEST_F(HttpGetTests, oneThatIsCancelledEndsAtOnceThoughNothingArrives)
{
    m_server.setAnswer({.closes = false});
    const auto cancelled = request(m_server.origin());
    const QFuture<Body> future = start(cancelled);
    EngineRun::turnUntil([this] { return m_server.requests().size() == 1; });
    EXPECT_FALSE(future.isFinished());
    cancelled->cancel();
    EXPECT_EQ(result(future), std::nullopt);
    EngineRun::turnUntil([this] { return m_server.endedConnections() == 1; });
}

TEST_F(HttpGetTests, oneThatIsCancelledBeforeItBeginsAsksNobody)
{
    m_server.setAnswer(LoopbackAnswer::http("body"));
    const auto cancelled = request(m_server.origin());
    cancelled->cancel();
    EXPECT_EQ(result(start(cancelled)), std::nullopt);
    EXPECT_TRUE(m_server.requests().isEmpty());
}

TEST_F(HttpGetTests, theProxyOfTheSystemIsAsked)
{
    const EnvironmentVariable exceptions("no_proxy");
    const EnvironmentVariable otherExceptions("NO_PROXY");
    exceptions.unset();
    otherExceptions.unset();
    m_server.setAnswer(LoopbackAnswer::http("from the proxy"));
    const QNetworkProxy proxy(QNetworkProxy::HttpProxy, u"127.0.0.1"_s, m_server.port());
    QNetworkProxy::setApplicationProxy(proxy);
    EXPECT_EQ(get(u"http://apps.invalid/search"_s), "from the proxy");
    EXPECT_EQ(m_server.requestLines().value(0), "GET http://apps.invalid/search HTTP/1.1");
}

TEST_F(HttpGetTests, manyAtOnceKeepTheirAnswersApart)
{
    constexpr int many = 20;
    QList<LoopbackAnswer> answers;
    for (int number = 0; number < many; ++number)
        answers.append(LoopbackAnswer::http(QByteArray::number(number)));
    m_server.setAnswers(answers);
    QList<QFuture<Body>> futures;
    for (int number = 0; number < many; ++number)
        futures.append(start(request(m_server.origin())));
    QList<int> bodies;
    for (const QFuture<Body>& future : futures)
        bodies.append(result(future).value_or("-1").toInt());
    std::ranges::sort(bodies);
    QList<int> expected(many);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(bodies, expected);
}

} // namespace keelbright::testing
