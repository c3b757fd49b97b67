#include "KeelbrightCore/apps/iTunesLookupService.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPromise>
#include <QUrl>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

using Found = std::optional<iTunesAppInfo>;

QUrl searchUrl(const QString& origin, const QString& appName)
{
    // All that may stand in a query unencoded besides letters, digits and "-._~". The ampersand is
    // among it, so a name with one in it is split there.
    const QByteArray term = QUrl::toPercentEncoding(appName, "!$&'()*+,;=:@/?");
    return QUrl::fromEncoded(origin.toUtf8() + "/search?term=" + term +
                                 "&entity=macSoftware&limit=5&country=us",
                             QUrl::StrictMode);
}

/// Whether this error only repeats what the answer's HTTP status says, so that the body is whole.
bool isHttpStatus(QNetworkReply::NetworkError error)
{
    return error == QNetworkReply::ProtocolInvalidOperationError ||
           error == QNetworkReply::ProxyAuthenticationRequiredError ||
           (error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError) ||
           (error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError);
}

bool hasWholeBody(const QNetworkReply& reply)
{
    constexpr int firstErrorStatus = 400;
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return reply.error() == QNetworkReply::NoError ||
           (status >= firstErrorStatus && isHttpStatus(reply.error()));
}

/// One request under way. Belongs to the program, not to who asked, and deletes itself.
class Request : public QObject
{
public:
    Request(const QUrl& url, QString appName, std::chrono::milliseconds timeout)
        : QObject(QCoreApplication::instance())
        , m_appName(std::move(appName))
    {
        m_promise.start();
        m_watcher.setFuture(m_promise.future());
        QNetworkRequest request(url);
        request.setTransferTimeout(static_cast<int>(timeout.count()));
        m_reply = m_manager.get(request);
        connect(m_reply, &QNetworkReply::readyRead, this, &Request::limitBody);
        connect(m_reply, &QNetworkReply::finished, this, &Request::finish);
        connect(&m_watcher, &QFutureWatcherBase::canceled, m_reply, &QNetworkReply::abort);
        // The toolkit's network thread can only let its own objects go while the application lives.
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, [this] { delete this; });
    }

    ~Request() override { m_reply->disconnect(this); }

    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    [[nodiscard]] QFuture<Found> future() const { return m_promise.future(); }

private:
    void limitBody()
    {
        if (m_reply->bytesAvailable() > iTunesLookupService::maximumBodyBytes)
            m_reply->abort();
    }

    void finish()
    {
        m_promise.addResult(hasWholeBody(*m_reply)
                                ? iTunesAppInfo::fromSearchResults(m_reply->readAll(), m_appName)
                                : std::nullopt);
        m_promise.finish();
        deleteLater();
    }

    const QString m_appName;
    QPromise<Found> m_promise;
    QFutureWatcher<Found> m_watcher;
    QNetworkAccessManager m_manager;
    QNetworkReply* m_reply = nullptr; // owned by the manager
};

} // namespace

QFuture<Found> iTunesLookupService::lookup(const QString& appName, const SearchService& service)
{
    const QUrl url = searchUrl(service.origin, appName);
    if (!url.isValid())
        return QtFuture::makeReadyFuture(Found());
    return (new Request(url, appName, service.timeout))->future();
}

} // namespace keelbright
