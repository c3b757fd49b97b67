#include "KeelbrightCore/apps/iTunesLookupService.h"

#include "KeelbrightCore/apps/HttpGet.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QPromise>
#include <QThread>
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

/// One request under way. Belongs to the program, not to who asked, and deletes itself.
class Request : public QObject
{
public:
    Request(const QUrl& url, QString appName, std::chrono::milliseconds timeout)
        : QObject(QCoreApplication::instance())
        , m_appName(std::move(appName))
        , m_get(new HttpGet(timeout, iTunesLookupService::maximumBodyBytes))
    {
        m_promise.start();
        m_watcher.setFuture(m_promise.future());
        connect(&m_reading, &QFutureWatcherBase::finished, this, [this] { finish(m_reading.result()); });
        connect(&m_watcher, &QFutureWatcherBase::canceled, this, [this] { finish(std::nullopt); });
        connect(m_get, &HttpGet::finished, this, &Request::read);
        connect(&m_thread, &QThread::finished, m_get, &QObject::deleteLater);
        connect(&m_thread, &QThread::started, m_get, [get = m_get, url] { get->start(url); });
        // The network's objects can only go while the application lives.
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, [this] { delete this; });
        // Encryption takes longer than a frame.
        m_get->moveToThread(&m_thread);
        m_thread.start();
    }

    ~Request() override
    {
        m_thread.quit();
        m_thread.wait();
    }

    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    [[nodiscard]] QFuture<Found> future() const { return m_promise.future(); }

private:
    void read(const std::optional<QByteArray>& body)
    {
        if (!body) {
            finish(std::nullopt);
            return;
        }
        // Megabytes of JSON take longer than a frame, too.
        const auto read = [body, name = m_appName] { return iTunesAppInfo::fromSearchResults(*body, name); };
        m_reading.setFuture(TaskPools::runApart(TaskPools::Priority::userInitiated, read));
    }

    void finish(const Found& found)
    {
        for (QObject* source : {static_cast<QObject*>(&m_watcher), static_cast<QObject*>(&m_reading),
                                static_cast<QObject*>(m_get)})
            source->disconnect(this);
        m_promise.addResult(found);
        m_promise.finish();
        deleteLater();
    }

    const QString m_appName;
    QThread m_thread;
    HttpGet* const m_get; ///< on that thread, and goes with it
    QFutureWatcher<Found> m_reading;
    QPromise<Found> m_promise;
    QFutureWatcher<Found> m_watcher;
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
