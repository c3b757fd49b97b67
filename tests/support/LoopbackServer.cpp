#include "tests/support/LoopbackServer.h"

#include <QSslServer>
#include <QTcpSocket>
#include <QTimer>
#include <gtest/gtest.h>
#include <utility>

namespace keelbright::testing {

namespace {

/// Sends the pieces that are left, then goes.
void send(QTcpSocket* socket, const LoopbackAnswer& answer)
{
    if (answer.pieces.isEmpty()) {
        if (answer.closes)
            socket->disconnectFromHost();
        return;
    }
    QTimer::singleShot(answer.pause, socket, [socket, rest = answer]() mutable {
        socket->write(rest.pieces.takeFirst());
        send(socket, rest);
    });
}

std::unique_ptr<QTcpServer> encryptedServer(const QSslConfiguration& encryption)
{
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(encryption);
    return server;
}

} // namespace

LoopbackAnswer LoopbackAnswer::http(const QByteArray& body, const QByteArray& status,
                                    const QByteArray& headers)
{
    return {.pieces = {"HTTP/1.1 " + status + "\r\nContent-Type: application/json\r\nContent-Length: " +
                           QByteArray::number(body.size()) + "\r\n" + headers + "\r\n",
                       body}};
}

LoopbackServer::LoopbackServer()
    : LoopbackServer(std::make_unique<QTcpServer>(), QStringLiteral("http"))
{}

LoopbackServer::LoopbackServer(const QSslConfiguration& encryption)
    : LoopbackServer(encryptedServer(encryption), QStringLiteral("https"))
{}

LoopbackServer::LoopbackServer(std::unique_ptr<QTcpServer> server, const QString& scheme)
    : m_server(std::move(server))
    , m_scheme(scheme)
{
    if (!m_server->listen(QHostAddress::LocalHost))
        ADD_FAILURE() << m_server->errorString().toStdString();
    QObject::connect(m_server.get(), &QTcpServer::pendingConnectionAvailable, m_server.get(), [this] {
        while (QTcpSocket* const socket = m_server->nextPendingConnection())
            serve(socket);
    });
}

QString LoopbackServer::origin() const
{
    return QStringLiteral("%1://127.0.0.1:%2").arg(m_scheme, QString::number(port()));
}

QList<QByteArray> LoopbackServer::requestLines() const
{
    QList<QByteArray> lines;
    for (const QByteArray& request : m_requests)
        lines.append(request.first(request.indexOf("\r\n")));
    return lines;
}

void LoopbackServer::serve(QTcpSocket* socket)
{
    const auto head = std::make_shared<QByteArray>();
    QObject::connect(socket, &QTcpSocket::disconnected, m_server.get(), [this, socket] {
        ++m_endedConnections;
        socket->deleteLater();
    });
    QObject::connect(socket, &QTcpSocket::readyRead, m_server.get(), [this, socket, head] {
        head->append(socket->readAll());
        if (!head->endsWith("\r\n\r\n"))
            return;
        m_requests.append(*head);
        head->clear();
        answer(socket);
    });
}

void LoopbackServer::answer(QTcpSocket* socket)
{
    if (m_answers.isEmpty()) {
        ADD_FAILURE() << "nothing to answer with";
        socket->abort();
        return;
    }
    send(socket, m_answers.size() > 1 ? m_answers.takeFirst() : m_answers.first());
}

} // namespace keelbright::testing
