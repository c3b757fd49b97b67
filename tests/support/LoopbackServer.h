#pragma once

#include <QByteArray>
#include <QList>
#include <QSslConfiguration>
#include <QString>
#include <QTcpServer>
#include <chrono>
#include <memory>

namespace keelbright::testing {

/// What a `LoopbackServer` sends back for one request.
struct LoopbackAnswer
{
    /// Sent one by one, each after the pause.
    QList<QByteArray> pieces = {};
    std::chrono::milliseconds pause{0};
    /// Whether the connection is closed behind the last piece; otherwise it stays open in silence.
    bool closes = true;

    /// A whole HTTP answer. `headers` are lines, each with its end.
    [[nodiscard]] static LoopbackAnswer http(const QByteArray& body, const QByteArray& status = "200 OK",
                                             const QByteArray& headers = {});
};

/// A real HTTP or HTTPS server on 127.0.0.1, in the thread's own event loop. It reads what is sent up to
/// the empty line, keeps it, and answers from a list.
class LoopbackServer
{
public:
    /// Over HTTP.
    LoopbackServer();
    /// Over HTTPS, with the certificate and the key of this.
    explicit LoopbackServer(const QSslConfiguration& encryption);

    /// "http://127.0.0.1:<port>", or "https://" and so on.
    [[nodiscard]] QString origin() const;

    [[nodiscard]] quint16 port() const { return m_server->serverPort(); }

    /// For the next requests, one each; the last one also for all that follow.
    void setAnswers(const QList<LoopbackAnswer>& answers) { m_answers = answers; }

    void setAnswer(const LoopbackAnswer& answer) { setAnswers({answer}); }

    /// From now on nobody listens at the port.
    void close() { m_server->close(); }

    /// The heads of all requests, in order.
    [[nodiscard]] const QList<QByteArray>& requests() const { return m_requests; }

    /// How many connections there are no more, whichever side has closed them.
    [[nodiscard]] int endedConnections() const { return m_endedConnections; }

    /// Their first lines.
    [[nodiscard]] QList<QByteArray> requestLines() const;

private:
    LoopbackServer(std::unique_ptr<QTcpServer> server, const QString& scheme);
    void serve(QTcpSocket* socket);
    void answer(QTcpSocket* socket);

    std::unique_ptr<QTcpServer> m_server;
    QString m_scheme;
    QList<LoopbackAnswer> m_answers;
    QList<QByteArray> m_requests;
    int m_endedConnections = 0;
};

} // namespace keelbright::testing
