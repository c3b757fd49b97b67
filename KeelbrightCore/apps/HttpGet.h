#pragma once

#include "KeelbrightCore/apps/HttpAnswer.h"

#include <QObject>
#include <QSslSocket>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <memory>
#include <optional>

namespace keelbright {

/// One GET request over HTTP or HTTPS that follows redirections, never from HTTPS to HTTP, and keeps no more
/// of an answer than `HttpAnswer` does. Written here because Qt's own reads the head of an answer without a
/// limit. Belongs to a thread with an event loop, on which it works; destroying it ends the request.
class HttpGet : public QObject
{
    Q_OBJECT

public:
    /// How long to wait for the end of the head, of whatever answers come before it, and then for each
    /// further part of the body.
    HttpGet(std::chrono::milliseconds timeout, qint64 maximumBodyBytes);
    ~HttpGet() override;
    Q_DISABLE_COPY_MOVE(HttpGet)

    /// Once.
    void start(const QUrl& url);

Q_SIGNALS:
    /// Once: the whole body, whatever the status; nothing where there is no whole answer.
    void finished(const std::optional<QByteArray>& body);

private:
    void request(const QUrl& url);
    void send();
    void read();
    void end();
    void lookAtAnswer();
    [[nodiscard]] std::optional<QUrl> redirection() const;
    void closeSocket();
    void finish(const std::optional<QByteArray>& body);

    const qint64 m_maximumBodyBytes;
    QTimer m_patience;
    QUrl m_url;
    std::unique_ptr<QSslSocket> m_socket;
    HttpAnswer m_answer;
    int m_redirections = 0;
};

} // namespace keelbright
