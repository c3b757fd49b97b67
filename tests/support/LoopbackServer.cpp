#include "tests/support/LoopbackServer.h"

#include <QTcpSocket>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

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

} // namespace

LoopbackAnswer LoopbackAnswer::http(const QByteArray& body, const QByteArray& status,
                                    const QByteArray& headers)
{
    return {.pieces = {"HTTP/1.1 " + status + "\r\nContent-Type: application/json\r\nContent-Length: " +
                           QByteArray::number(body.size()) + "\r\n" + headers + "\r\n",
                       body}};
}

LoopbackServer::LoopbackServer()
{
    if (!m_server.listen(QHostAddress::LocalHost))
        ADD_FAILURE() << m_server.errorString().toStdString();
    QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
        while (QTcpSocket* const socket = m_server.nextPendingConnection())
            serve(socket);
    });
}

QString LoopbackServer::origin() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(m_server.serverPort());
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
    QObject::connect(socket, &QTcpSocket::disconnected, &m_server, [this, socket] {
        ++m_endedConnections;
        socket->deleteLater();
    });
    QObject::connect(socket, &QTcpSocket::readyRead, &m_server, [this, socket, head] {
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
