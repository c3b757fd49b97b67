// Requests to a real HTTPS server on this machine, with certificates of an authority that the test makes.

#include "tests/apps/HttpGetTestCase.h"
#include "tests/support/TestAuthority.h"

#include <QSslSocket>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class HttpGetEncryptionTests : public HttpGetTestCase
{
protected:
    void SetUp() override
    {
        if (!QSslSocket::supportsSsl())
            GTEST_SKIP() << "Qt has no library for encryption here, which the test's server needs";
        trust(authority);
    }

    /// From now on it alone is trusted.
    void trust(const TestAuthority& trusted)
    {
        authorities = m_mac.writeFile("authorities.pem", trusted.certificate()).nativePath();
    }

    /// Whether a server with this certificate is believed; one that is not is asked for nothing.
    [[nodiscard]] bool isBelieved(const QSslConfiguration& encryption) const
    {
        LoopbackServer server(encryption);
        server.setAnswer(LoopbackAnswer::http("body"));
        const Body body = get(server.origin());
        EXPECT_EQ(server.requests().size(), body ? 1 : 0);
        EXPECT_TRUE(!body || *body == "body");
        return body.has_value();
    }

    TestMac m_mac;
    const QByteArray host = "IP:127.0.0.1";
    TestAuthority authority;
};

} // namespace

TEST_F(HttpGetEncryptionTests, aGoodCertificateIsBelieved)
{
    EXPECT_TRUE(isBelieved(authority.serverFor(host)));
}

TEST_F(HttpGetEncryptionTests, aCertificateForAnotherHostIsNot)
{
    EXPECT_FALSE(isBelieved(authority.serverFor("IP:127.0.0.2")));
    EXPECT_FALSE(isBelieved(authority.serverFor("DNS:localhost")));
}

TEST_F(HttpGetEncryptionTests, aCertificateForANameIsBelievedUnderThatName)
{
    LoopbackServer server(authority.serverFor("DNS:localhost"));
    server.setAnswer(LoopbackAnswer::http("body"));
    EXPECT_EQ(get(u"https://localhost:%1"_s.arg(server.port())), "body");
}

TEST_F(HttpGetEncryptionTests, aCertificateBeforeAndAfterItsTimeIsNotBelieved)
{
    EXPECT_FALSE(isBelieved(authority.serverFor(host, {.from = -24h, .until = -1h})));
    EXPECT_FALSE(isBelieved(authority.serverFor(host, {.from = 1h, .until = 24h})));
}

TEST_F(HttpGetEncryptionTests, aCertificateOfAnUnknownAuthorityIsNotBelieved)
{
    const TestAuthority unknown;
    EXPECT_FALSE(isBelieved(unknown.serverFor(host)));
    trust(unknown);
    EXPECT_FALSE(isBelieved(authority.serverFor(host)));
}

TEST_F(HttpGetEncryptionTests, nothingOfATestIsTrustedWithoutItsFile)
{
    authorities.clear();
    EXPECT_FALSE(isBelieved(authority.serverFor(host)));
    authorities = m_mac.root().appendingNative("missing.pem").nativePath();
    EXPECT_FALSE(isBelieved(authority.serverFor(host)));
}

TEST_F(HttpGetEncryptionTests, aRedirectionToAnotherEncryptedServerIsFollowed)
{
    LoopbackServer first(authority.serverFor(host));
    LoopbackServer second(authority.serverFor(host));
    first.setAnswer(
        LoopbackAnswer::http("", "302 Found", "Location: " + second.origin().toLatin1() + "/next\r\n"));
    second.setAnswer(LoopbackAnswer::http("body"));
    EXPECT_EQ(get(first.origin()), "body");
    EXPECT_EQ(second.requestLines().value(0), "GET /next HTTP/1.1");
}

TEST_F(HttpGetEncryptionTests, aRedirectionToAServerWithoutEncryptionIsNot)
{
    LoopbackServer encrypted(authority.serverFor(host));
    LoopbackServer plain;
    encrypted.setAnswer(
        LoopbackAnswer::http("", "302 Found", "Location: " + plain.origin().toLatin1() + "/next\r\n"));
    plain.setAnswer(LoopbackAnswer::http("body"));
    EXPECT_EQ(get(encrypted.origin()), std::nullopt);
    EXPECT_EQ(encrypted.requests().size(), 1);
    EXPECT_TRUE(plain.requests().isEmpty());
}

TEST_F(HttpGetEncryptionTests, aServerThatNeverBeginsToEncryptIsGivenUpAtTheDeadline)
{
    LoopbackServer plain; // waits for the end of a head, which never comes
    EXPECT_EQ(get(u"https://127.0.0.1:%1"_s.arg(plain.port()), 300ms), std::nullopt);
}

TEST_F(HttpGetEncryptionTests, aServerThatFallsSilentIsGivenUpAtTheDeadline)
{
    LoopbackServer server(authority.serverFor(host));
    server.setAnswer({.pieces = {"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n", "bo"}, .closes = false});
    EXPECT_EQ(get(server.origin(), 2s), std::nullopt);
}

TEST_F(HttpGetEncryptionTests, aConnectionThatBreaksOffInTheMiddleIsNothing)
{
    LoopbackServer server(authority.serverFor(host));
    server.setAnswer({.pieces = {"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n", "bo"}});
    EXPECT_EQ(get(server.origin()), std::nullopt);
}

TEST_F(HttpGetEncryptionTests, oneThatIsCancelledEndsAtOnceThoughNothingArrives)
{
    LoopbackServer server(authority.serverFor(host));
    server.setAnswer({.closes = false});
    const auto cancelled = request(server.origin());
    const QFuture<Body> future = start(cancelled);
    EngineRun::turnUntil([&server] { return server.requests().size() == 1; });
    cancelled->cancel();
    EXPECT_EQ(result(future), std::nullopt);
}

} // namespace keelbright::testing
