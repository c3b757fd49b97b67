#include "KeelbrightCore/apps/iTunesLookupService.h"

#include "KeelbrightCore/platform/system/TaskPools.h"

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
        connect(&m_reading, &QFutureWatcherBase::finished, this, [this] { finish(m_reading.result()); });
        QNetworkRequest request(url);
        request.setTransferTimeout(static_cast<int>(timeout.count()));
        // With the newer protocol the toolkit goes on receiving, however much is unread.
        request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
        m_reply = m_manager.get(request);
        m_reply->setReadBufferSize(unreadBytes);
        connect(m_reply, &QNetworkReply::readyRead, this, &Request::takeBody);
        connect(m_reply, &QNetworkReply::finished, this, &Request::readAnswer);
        connect(&m_watcher, &QFutureWatcherBase::canceled, m_reply, &QNetworkReply::abort);
        // The toolkit's network thread can only let its own objects go while the application lives.
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, [this] { delete this; });
    }

    ~Request() override { m_reply->disconnect(this); }

    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    [[nodiscard]] QFuture<Found> future() const { return m_promise.future(); }

private:
    void takeBody()
    {
        m_body += m_reply->readAll();
        if (m_body.size() > iTunesLookupService::maximumBodyBytes)
            m_reply->abort();
    }

    void readAnswer()
    {
        if (m_reply->isOpen())
            m_body += m_reply->readAll();
        if (!hasWholeBody(*m_reply) || m_body.size() > iTunesLookupService::maximumBodyBytes) {
            finish(std::nullopt);
            return;
        }
        // Megabytes of JSON take longer than a frame.
        const auto read = [body = m_body, name = m_appName] {
            return iTunesAppInfo::fromSearchResults(body, name);
        };
        m_reading.setFuture(TaskPools::runApart(TaskPools::Priority::userInitiated, read));
    }

    void finish(const Found& found)
    {
        m_promise.addResult(found);
        m_promise.finish();
        deleteLater();
    }

    /// How much may wait here while the main thread is busy; the rest stays with the server.
    static constexpr qint64 unreadBytes = qint64{256} * 1024;

    const QString m_appName;
    QByteArray m_body;
    QFutureWatcher<Found> m_reading;
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
