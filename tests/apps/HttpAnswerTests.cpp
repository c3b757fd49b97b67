#include "KeelbrightCore/apps/HttpAnswer.h"

#include <QList>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

using State = HttpAnswer::State;

constexpr qint64 maximumBody = 1'000;

/// The answer after these bytes have arrived, at once and one by one, which must make no difference.
HttpAnswer answerOf(const QByteArray& bytes, bool hasEnded = false)
{
    HttpAnswer whole(maximumBody);
    whole.take(bytes);
    HttpAnswer byByte(maximumBody);
    for (const char byte : bytes)
        byByte.take(QByteArrayView(&byte, 1));
    if (hasEnded) {
        whole.end();
        byByte.end();
    }
    EXPECT_EQ(byByte.state(), whole.state()) << bytes.constData();
    if (whole.state() == State::whole) {
        EXPECT_EQ(byByte.body(), whole.body()) << bytes.constData();
    }
    return whole;
}

TEST(HttpAnswerTests, aBodyHasItsLength)
{
    const HttpAnswer answer = answerOf("HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nabcdef");
    EXPECT_EQ(answer.state(), State::whole);
    EXPECT_EQ(answer.status(), 200);
    EXPECT_EQ(answer.body(), "abc");
}

TEST(HttpAnswerTests, aBodyWithoutALengthEndsWithTheConnection)
{
    const QByteArray bytes = "HTTP/1.0 404 Not Found\n\nabc";
    EXPECT_EQ(answerOf(bytes).state(), State::body);
    const HttpAnswer answer = answerOf(bytes, true);
    EXPECT_EQ(answer.state(), State::whole);
    EXPECT_EQ(answer.status(), 404);
    EXPECT_EQ(answer.body(), "abc");
}

TEST(HttpAnswerTests, aBodyInPiecesIsPutTogether)
{
    const QByteArray head = "HTTP/1.1 200 OK\r\ntransfer-encoding: Chunked\r\nContent-Length: 1\r\n\r\n";
    const HttpAnswer answer = answerOf(head + "2;x=1\r\nab\r\n0a\r\ncdefghijkl\r\n0\r\nX: y\r\n\r\nrest");
    EXPECT_EQ(answer.state(), State::whole);
    EXPECT_EQ(answer.body(), "abcdefghijkl");
    for (const char* broken : {"2\r\nabc\r\n", "x\r\n", "-1\r\n", "\r\n", "fffffffffffffffff\r\n"})
        EXPECT_EQ(answerOf(head + broken).state(), State::broken) << broken;
    EXPECT_EQ(answerOf(head + "2\r\nab\r\n", true).state(), State::broken);
}

TEST(HttpAnswerTests, answersBeforeTheAnswerArePassedOver)
{
    const HttpAnswer answer = answerOf("HTTP/1.1 100 Continue\r\nContent-Length: 9\r\n\r\n"
                                       "HTTP/1.1 103 Early Hints\r\nLocation: /no\r\n\r\n"
                                       "HTTP/1.1 302 Found\r\nLocation:  /yes \r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(answer.state(), State::whole);
    EXPECT_EQ(answer.status(), 302);
    EXPECT_EQ(answer.location(), "/yes");
}

TEST(HttpAnswerTests, someAnswersHaveNoBody)
{
    for (const char* status : {"204 No Content", "304 Not Modified"})
        EXPECT_EQ(answerOf(QByteArray("HTTP/1.1 ") + status + "\r\n\r\n").state(), State::whole) << status;
}

TEST(HttpAnswerTests, whatIsNoAnswerIsBroken)
{
    for (const char* line : {"", "220 mail ready", "HTTP/1.1", "HTTP/1.1 20", "HTTP/1.1 abc", "HTTP/2 200 OK",
                             "HTTP/1.1-200 OK", "HTTP/1.1 099 Odd"})
        EXPECT_EQ(answerOf(QByteArray(line) + "\r\n").state(), State::broken) << line;
    for (const char* length : {"-1", "x", "", "99999999999999999999"})
        EXPECT_EQ(answerOf(QByteArray("HTTP/1.1 200 OK\r\nContent-Length: ") + length + "\r\n").state(),
                  State::broken)
            << length;
    EXPECT_EQ(answerOf("HTTP/1.1 200 OK\r\nContent-Length: 1\r\nContent-Length: 2\r\n").state(),
              State::broken);
}

TEST(HttpAnswerTests, aCutAnswerIsBroken)
{
    const QByteArray whole = "HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\nabc";
    for (qsizetype length = 0; length < whole.size(); ++length)
        EXPECT_EQ(answerOf(whole.left(length), true).state(), State::broken) << length;
    EXPECT_EQ(answerOf(whole, true).state(), State::whole);
}

TEST(HttpAnswerTests, aBodyAboveTheLimitIsBroken)
{
    const QByteArray most(maximumBody, 'x');
    const QByteArray head = "HTTP/1.1 200 OK\r\n\r\n";
    EXPECT_EQ(answerOf(head + most, true).state(), State::whole);
    EXPECT_EQ(answerOf(head + most + "x").state(), State::broken);
}

TEST(HttpAnswerTests, aHeadAboveTheLimitIsBroken)
{
    const QByteArray line = "X: y\r\n";
    const QByteArray start = "HTTP/1.1 200 OK\r\n";
    HttpAnswer lines(maximumBody);
    lines.take(start + line.repeated(HttpAnswer::maximumHeadBytes / line.size()));
    EXPECT_EQ(lines.state(), State::broken);
    HttpAnswer oneLine(maximumBody);
    oneLine.take(start + QByteArray(HttpAnswer::maximumHeadBytes, 'x'));
    EXPECT_EQ(oneLine.state(), State::broken);
}

} // namespace
} // namespace keelbright
