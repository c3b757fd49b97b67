#pragma once

#include <QByteArray>
#include <QString>
#include <atomic>
#include <chrono>
#include <thread>

namespace keelbright::testing {

/// A server on 127.0.0.1, on a thread of its own, that answers without end: `start`, then `piece` again
/// and again as fast as the other side takes it, each after the pause. It serves one connection.
class FloodServer
{
public:
    FloodServer(QByteArray start, QByteArray piece, std::chrono::milliseconds pause = {});
    ~FloodServer();
    FloodServer(const FloodServer&) = delete;
    FloodServer& operator=(const FloodServer&) = delete;

    /// "http://127.0.0.1:<port>"
    [[nodiscard]] QString origin() const;

    /// How many bytes the system has taken from this side.
    [[nodiscard]] qint64 sentBytes() const { return m_sentBytes; }

    /// Whether the other side has closed the connection.
    [[nodiscard]] bool isClosed() const { return m_isClosed; }

private:
    void serve(const std::stop_token& stop);

    const QByteArray m_start;
    const QByteArray m_piece;
    const std::chrono::milliseconds m_pause;
    int m_listener = -1;
    std::atomic<qint64> m_sentBytes = 0;
    std::atomic<bool> m_isClosed = false;
    std::jthread m_thread;
};

} // namespace keelbright::testing
