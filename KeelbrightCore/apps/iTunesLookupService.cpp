#include "KeelbrightCore/apps/iTunesLookupService.h"

#include "KeelbrightCore/apps/HttpGet.h"
#include "KeelbrightCore/platform/system/ReadyFuture.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QPromise>
#include <QUrl>
#include <memory>

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
    Request(const QUrl& url, const QString& appName, const iTunesLookupService::SearchService& service)
        : QObject(QCoreApplication::instance())
        , m_get(std::make_shared<HttpGet>(
              url, HttpGet::Limits{service.timeout, iTunesLookupService::maximumBodyBytes},
              service.authorities))
    {
        m_promise.start();
        m_watcher.setFuture(m_promise.future());
        connect(&m_answer, &QFutureWatcherBase::finished, this, [this] {
            // None where memory ran out for it.
            finish(m_answer.future().resultCount() > 0 ? m_answer.result() : std::nullopt);
        });
        connect(&m_watcher, &QFutureWatcherBase::canceled, this, [this] { finish(std::nullopt); });
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, [this] { delete this; });
        // Encryption takes longer than a frame, and so do megabytes of JSON.
        const auto ask = [get = m_get, appName]() -> Found {
            const std::optional<QByteArray> body = get->perform();
            return body ? iTunesAppInfo::fromSearchResults(*body, appName) : std::nullopt;
        };
        m_answer.setFuture(TaskPools::runApart(TaskPools::Priority::userInitiated, ask));
    }

    ~Request() override { m_get->cancel(); }

    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    [[nodiscard]] QFuture<Found> future() const { return m_promise.future(); }

private:
    void finish(const Found& found)
    {
        m_watcher.disconnect(this);
        m_answer.disconnect(this);
        m_promise.addResult(found);
        m_promise.finish();
        deleteLater();
    }

    const std::shared_ptr<HttpGet> m_get; ///< the thread that waits for the answer has it, too
    QFutureWatcher<Found> m_answer;
    QPromise<Found> m_promise;
    QFutureWatcher<Found> m_watcher;
};

} // namespace

QFuture<Found> iTunesLookupService::lookup(const QString& appName, const SearchService& service)
{
    const QUrl url = searchUrl(service.origin, appName);
    if (!url.isValid())
        return readyFuture(Found());
    return (new Request(url, appName, service))->future();
}

} // namespace keelbright
