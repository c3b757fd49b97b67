#pragma once

#include <QByteArray>
#include <QUrl>
#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>

namespace keelbright {

/// One GET request over HTTP or HTTPS, by libcurl. The certificate of a server has to be valid and for its
/// host. Redirections are followed, from HTTPS only to HTTPS. The proxy is the one
/// that the system is set to.
class HttpGet
{
public:
    struct Limits
    {
        /// For all together: the server's name, the connection, every redirection, the answer to its last
        /// byte.
        std::chrono::milliseconds deadline;
        /// Decompressed, where the server compresses.
        qint64 maximumBodyBytes;
    };

    /// Status lines and fields of all answers together, those of redirections among them.
    static constexpr qint64 maximumHeadBytes = qint64{256} * 1024;

    /// `authorities` is the path of a file with the only certificate authorities to trust, in the PEM format;
    /// without one the system's are trusted.
    HttpGet(QUrl url, const Limits& limits, QByteArray authorities = {});
    ~HttpGet();
    HttpGet(const HttpGet&) = delete;
    HttpGet& operator=(const HttpGet&) = delete;

    /// The whole body, whatever the status; nothing where there is no whole answer within the limits. Once;
    /// blocks, on a thread that may.
    [[nodiscard]] std::optional<QByteArray> perform();

    /// Lets `perform` end with nothing, at once also where nothing arrives. Any thread.
    void cancel();

private:
    class Answer;
    class Transfer;

    /// Null once it is cancelled. Belongs to this.
    [[nodiscard]] void* begin();
    [[nodiscard]] bool waitForEnd(void* transfers) const;

    struct Free
    {
        void operator()(void* transfers) const;
    };

    const QUrl m_url;
    const Limits m_limits;
    const QByteArray m_authorities;
    std::atomic<bool> m_isCancelled = false;
    std::mutex m_mutex;                      ///< for the pointer below
    std::unique_ptr<void, Free> m_transfers; ///< libcurl's, to wake its waiting thread; null before `perform`
};

} // namespace keelbright
