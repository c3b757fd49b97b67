#include "KeelbrightCore/apps/HttpGet.h"

#include "KeelbrightCore/platform/system/ProgramVersion.h"

#include <QNetworkProxyFactory>
#include <QNetworkProxyQuery>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumRedirections = 20;

bool isSecure(const QUrl& url)
{
    return url.scheme() == u"https"_s;
}

bool isSupported(const QUrl& url)
{
    return url.isValid() && !url.host().isEmpty() && (isSecure(url) || url.scheme() == u"http"_s);
}

QByteArray requestFor(const QUrl& url)
{
    const QUrl::FormattingOptions rest =
        QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment | QUrl::FullyEncoded;
    const QByteArray target = url.toEncoded(rest);
    const QByteArray host = url.toEncoded(QUrl::RemoveScheme | QUrl::RemoveUserInfo | QUrl::RemovePath |
                                          QUrl::RemoveQuery | QUrl::RemoveFragment | QUrl::FullyEncoded);
    return "GET " + (target.startsWith('/') ? target : '/' + target) +
           " HTTP/1.1\r\nHost: " + host.mid(2) + // behind the slashes
           "\r\nUser-Agent: Keelbright/" + programVersion().toLatin1() +
           "\r\nAccept: */*\r\nAccept-Encoding: identity\r\nConnection: close\r\n\r\n";
}

} // namespace

HttpGet::HttpGet(std::chrono::milliseconds timeout, qint64 maximumBodyBytes)
    : m_maximumBodyBytes(maximumBodyBytes)
    , m_patience(this)
    , m_answer(maximumBodyBytes)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(timeout);
    connect(&m_patience, &QTimer::timeout, this, [this] { finish(std::nullopt); });
}

HttpGet::~HttpGet()
{
    if (m_socket)
        m_socket->disconnect(this);
}

void HttpGet::start(const QUrl& url)
{
    m_patience.start();
    request(url);
}

void HttpGet::request(const QUrl& url)
{
    constexpr int portOfHttp = 80;
    constexpr int portOfHttps = 443;
    constexpr qint64 unreadBytes = qint64{64} * 1024;
    m_url = url;
    m_answer = HttpAnswer(m_maximumBodyBytes);
    m_socket = std::make_unique<QSslSocket>();
    m_socket->setReadBufferSize(unreadBytes);
    m_socket->setProxy(QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url)).value(0));
    connect(m_socket.get(), &QAbstractSocket::readyRead, this, &HttpGet::read);
    connect(m_socket.get(), &QAbstractSocket::disconnected, this, &HttpGet::end);
    connect(m_socket.get(), &QAbstractSocket::errorOccurred, this, &HttpGet::end);
    if (isSecure(url)) {
        connect(m_socket.get(), &QSslSocket::encrypted, this, &HttpGet::send);
        m_socket->connectToHostEncrypted(url.host(), static_cast<quint16>(url.port(portOfHttps)));
    } else {
        connect(m_socket.get(), &QAbstractSocket::connected, this, &HttpGet::send);
        m_socket->connectToHost(url.host(), static_cast<quint16>(url.port(portOfHttp)));
    }
}

void HttpGet::send()
{
    m_socket->write(requestFor(m_url));
}

void HttpGet::read()
{
    m_answer.take(m_socket->readAll());
    lookAtAnswer();
}

void HttpGet::end()
{
    if (m_socket->isOpen())
        m_answer.take(m_socket->readAll());
    m_answer.end();
    lookAtAnswer();
}

void HttpGet::lookAtAnswer()
{
    const HttpAnswer::State state = m_answer.state();
    const bool hasHead = state == HttpAnswer::State::body || state == HttpAnswer::State::whole;
    if (const std::optional<QUrl> next = hasHead ? redirection() : std::nullopt) {
        closeSocket();
        if (isSupported(*next) && ++m_redirections <= maximumRedirections)
            request(*next);
        else
            finish(std::nullopt);
    } else if (state == HttpAnswer::State::body) {
        m_patience.start();
    } else if (state != HttpAnswer::State::head) {
        finish(state == HttpAnswer::State::whole ? std::optional(m_answer.body()) : std::nullopt);
    }
}

/// Where the answer leads; invalid where that may not be followed.
std::optional<QUrl> HttpGet::redirection() const
{
    const int status = m_answer.status();
    const bool isRedirection = (status >= 301 && status <= 303) || status == 307 || status == 308;
    if (!isRedirection || m_answer.location().isEmpty())
        return std::nullopt;
    const QUrl target = m_url.resolved(QUrl::fromEncoded(m_answer.location(), QUrl::StrictMode));
    return isSecure(m_url) && !isSecure(target) ? QUrl() : target;
}

void HttpGet::closeSocket()
{
    if (!m_socket)
        return;
    m_socket->disconnect(this);
    m_socket->abort();
    m_socket.release()->deleteLater(); // it may be what called
}

void HttpGet::finish(const std::optional<QByteArray>& body)
{
    m_patience.stop();
    closeSocket();
    Q_EMIT finished(body);
}

} // namespace keelbright
