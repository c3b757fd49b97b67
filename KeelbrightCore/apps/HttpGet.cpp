#include "KeelbrightCore/apps/HttpGet.h"

#include "KeelbrightCore/platform/system/ProgramVersion.h"

#include <QByteArrayView>
#include <QDeadlineTimer>
#include <QNetworkProxyFactory>
#include <QNetworkProxyQuery>
#include <algorithm>
#include <curl/curl.h>
#include <new>
#include <utility>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

bool isLibraryReady()
{
    static const bool isReady = ::curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return isReady;
}

bool isSecure(const QUrl& url)
{
    return url.scheme() == u"https"_s;
}

/// libcurl would take what has no scheme for a host.
bool isSupported(const QUrl& url)
{
    return url.isValid() && !url.host().isEmpty() && (isSecure(url) || url.scheme() == u"http"_s);
}

/// As libcurl takes it; empty for none.
QByteArray addressOf(const QNetworkProxy& proxy)
{
    QUrl address;
    if (proxy.type() == QNetworkProxy::Socks5Proxy)
        address.setScheme(u"socks5h"_s); // which looks for the server's name itself
    else if (proxy.type() == QNetworkProxy::HttpProxy || proxy.type() == QNetworkProxy::HttpCachingProxy)
        address.setScheme(u"http"_s);
    else
        return {};
    address.setHost(proxy.hostName());
    address.setPort(proxy.port());
    return address.toEncoded();
}

} // namespace

/// What has arrived of the answer.
class HttpGet::Answer
{
public:
    explicit Answer(qint64 maximumBodyBytes)
        : m_maximumBodyBytes(maximumBodyBytes)
    {}

    /// One line each. Called by libcurl, which ends the transfer where it gets another number back than that
    /// of the bytes.
    static size_t takeHead(char* data, size_t size, size_t count, void* answer)
    {
        auto& self = *static_cast<Answer*>(answer);
        const QByteArrayView line(data, static_cast<qsizetype>(size * count));
        if (line.startsWith("HTTP/"))
            self.m_isHeadWhole = false;
        else if (line == "\r\n" || line == "\n")
            self.m_isHeadWhole = true;
        self.m_headBytes += line.size();
        return self.m_headBytes <= maximumHeadBytes ? size * count : 0;
    }

    static size_t takeBody(char* data, size_t size, size_t count, void* answer)
    try {
        auto& self = *static_cast<Answer*>(answer);
        const auto bytes = static_cast<qsizetype>(size * count);
        if (self.m_body.size() + bytes > self.m_maximumBodyBytes)
            return 0;
        self.m_body.append(data, bytes);
        return size * count;
    } catch (const std::bad_alloc&) {
        return 0; // no exception may pass through libcurl
    }

    /// To be called once all has come. libcurl is content with a head that breaks off between two lines.
    [[nodiscard]] std::optional<QByteArray> takeBodyIfWhole()
    {
        return m_isHeadWhole ? std::optional(std::move(m_body)) : std::nullopt;
    }

private:
    const qint64 m_maximumBodyBytes;
    qint64 m_headBytes = 0;
    bool m_isHeadWhole = false;
    QByteArray m_body;
};

/// One request of libcurl with all its options.
class HttpGet::Transfer
{
public:
    Transfer() = default;

    ~Transfer() { ::curl_easy_cleanup(m_handle); }

    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    [[nodiscard]] CURL* handle() const { return m_handle; }

    [[nodiscard]] bool setUp(const QUrl& url, const QByteArray& authorities, const QDeadlineTimer& deadline,
                             Answer& answer)
    {
        if (!m_handle || !isSupported(url))
            return false;
        setRequest(url);
        setProxy(QNetworkProxyFactory::proxyForQuery(QNetworkProxyQuery(url)).value(0));
        // What the look for the proxy has left of it; 0 would be no deadline at all.
        set(CURLOPT_TIMEOUT_MS, static_cast<long>(std::max<qint64>(deadline.remainingTime(), 1)));
        // No signals, which belong to the whole process, and no wait for a name that can't be found.
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_QUICK_EXIT, 1L);
        set(CURLOPT_SSL_VERIFYPEER, 1L);
        set(CURLOPT_SSL_VERIFYHOST, 2L);
        if (!authorities.isEmpty()) {
            set(CURLOPT_CAINFO, authorities.constData());
            set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
        }
        set(CURLOPT_HEADERFUNCTION, &Answer::takeHead);
        set(CURLOPT_HEADERDATA, static_cast<void*>(&answer));
        set(CURLOPT_WRITEFUNCTION, &Answer::takeBody);
        set(CURLOPT_WRITEDATA, static_cast<void*>(&answer));
        return m_isSet;
    }

private:
    template <typename Value> void set(CURLoption option, Value value)
    {
        m_isSet = m_isSet && ::curl_easy_setopt(m_handle, option, value) == CURLE_OK;
    }

    void setRequest(const QUrl& url)
    {
        constexpr long maximumRedirections = 20;
        const QByteArray address = url.toEncoded(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
        const QByteArray agent = "Keelbright/" + programVersion().toLatin1();
        set(CURLOPT_URL, address.constData());
        set(CURLOPT_USERAGENT, agent.constData());
        set(CURLOPT_PROTOCOLS_STR, "http,https");
        set(CURLOPT_REDIR_PROTOCOLS_STR, isSecure(url) ? "https" : "http,https");
        set(CURLOPT_FOLLOWLOCATION, 1L);
        set(CURLOPT_MAXREDIRS, maximumRedirections);
        set(CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});
        set(CURLOPT_ACCEPT_ENCODING, "gzip, deflate");
        set(CURLOPT_FORBID_REUSE, 1L);
    }

    void setProxy(const QNetworkProxy& proxy)
    {
        const QByteArray address = addressOf(proxy);
        const QByteArray user = proxy.user().toUtf8();
        const QByteArray password = proxy.password().toUtf8();
        set(CURLOPT_PROXY, address.constData()); // also where it is empty, else libcurl would look for one
        if (!address.isEmpty() && !user.isEmpty()) {
            set(CURLOPT_PROXYUSERNAME, user.constData());
            set(CURLOPT_PROXYPASSWORD, password.constData());
        }
    }

    CURL* const m_handle = ::curl_easy_init();
    bool m_isSet = true;
};

HttpGet::HttpGet(QUrl url, const Limits& limits, QByteArray authorities)
    : m_url(std::move(url))
    , m_limits(limits)
    , m_authorities(std::move(authorities))
{}

HttpGet::~HttpGet() = default;

void HttpGet::Free::operator()(void* transfers) const
{
    ::curl_multi_cleanup(transfers);
}

std::optional<QByteArray> HttpGet::perform()
{
    const QDeadlineTimer deadline(m_limits.deadline);
    Answer answer(m_limits.maximumBodyBytes);
    void* const transfers = isLibraryReady() ? begin() : nullptr;
    Transfer transfer;
    if (!transfers || !transfer.setUp(m_url, m_authorities, deadline, answer))
        return std::nullopt;
    if (::curl_multi_add_handle(transfers, transfer.handle()) != CURLM_OK)
        return std::nullopt;
    const bool isWhole = waitForEnd(transfers);
    ::curl_multi_remove_handle(transfers, transfer.handle());
    return isWhole ? answer.takeBodyIfWhole() : std::nullopt;
}

void HttpGet::cancel()
{
    m_isCancelled = true;
    const std::lock_guard lock(m_mutex);
    if (m_transfers)
        ::curl_multi_wakeup(m_transfers.get());
}

void* HttpGet::begin()
{
    const std::lock_guard lock(m_mutex);
    if (!m_isCancelled)
        m_transfers.reset(::curl_multi_init());
    return m_transfers.get();
}

/// Whether the whole answer has come.
bool HttpGet::waitForEnd(void* transfers) const
{
    int running = 1;
    for (;;) {
        if (::curl_multi_perform(transfers, &running) != CURLM_OK)
            return false;
        if (running == 0)
            break;
        constexpr int longestSleep = 1'000; // libcurl wakes up earlier where it has something to do
        if (m_isCancelled || ::curl_multi_poll(transfers, nullptr, 0, longestSleep, nullptr) != CURLM_OK)
            return false;
    }
    int left = 0;
    const CURLMsg* const message = ::curl_multi_info_read(transfers, &left);
    return message && message->msg == CURLMSG_DONE && message->data.result == CURLE_OK;
}

} // namespace keelbright
