#include "tests/support/FloodServer.h"

#include <arpa/inet.h>
#include <cerrno>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace keelbright::testing {

namespace {

/// Waits in small steps; false once the server is to stop.
bool waitFor(int socket, short event, const std::stop_token& stop)
{
    constexpr int step = 20; // milliseconds
    pollfd watched{socket, event, 0};
    while (!stop.stop_requested()) {
        if (::poll(&watched, 1, step) > 0)
            return true;
    }
    return false;
}

/// Whether all of it was sent; false once the server is to stop or the other side has gone.
bool sendAll(int socket, QByteArrayView data, std::atomic<qint64>& sentBytes, const std::stop_token& stop)
{
    while (!data.isEmpty()) {
        if (!waitFor(socket, POLLOUT, stop))
            return false;
        const ssize_t sent =
            ::send(socket, data.data(), static_cast<size_t>(data.size()), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0 && errno != EAGAIN && errno != EINTR)
            return false;
        sentBytes += qMax<ssize_t>(sent, 0);
        data = data.sliced(qMax<ssize_t>(sent, 0));
    }
    return true;
}

} // namespace

FloodServer::FloodServer(QByteArray start, QByteArray piece, std::chrono::milliseconds pause)
    : m_start(std::move(start))
    , m_piece(std::move(piece))
    , m_pause(pause)
    , m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(m_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(m_listener, 1) != 0)
        ADD_FAILURE() << "no port to listen at";
    m_thread = std::jthread([this](const std::stop_token& stop) { serve(stop); });
}

FloodServer::~FloodServer()
{
    m_thread.request_stop();
    m_thread.join();
    ::close(m_listener);
}

QString FloodServer::origin() const
{
    sockaddr_in address = {};
    socklen_t size = sizeof address;
    if (::getsockname(m_listener, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        ADD_FAILURE() << "the server has no port";
    return QStringLiteral("http://127.0.0.1:%1").arg(ntohs(address.sin_port));
}

void FloodServer::serve(const std::stop_token& stop)
{
    if (!waitFor(m_listener, POLLIN, stop))
        return;
    const int socket = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    bool isOpen = socket >= 0 && sendAll(socket, m_start, m_sentBytes, stop);
    while (isOpen) {
        std::this_thread::sleep_for(m_pause);
        isOpen = sendAll(socket, m_piece, m_sentBytes, stop);
    }
    m_isClosed = !stop.stop_requested();
    ::close(socket);
}

} // namespace keelbright::testing
