#include "Keelbright/screens/shell/SingleInstance.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/LocalPeer.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QThread>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

// A request is one line: this text, and the name of an action behind a blank if there is one.
constexpr QByteArrayView show = "show";
constexpr QByteArrayView answer = "shown\n";
constexpr qint64 longestRequest = 80; // bytes

QByteArray requestFor(const std::optional<WindowAction>& action)
{
    return show.toByteArray() + (action ? ' ' + nameOf(*action).toLatin1() : QByteArray()) + '\n';
}

struct Request
{
    std::optional<WindowAction> action;
};

/// Absent for any other text. An action that this version does not know still asks for the window.
std::optional<Request> requestIn(const QByteArray& line)
{
    const QByteArray text = line.chopped(1);
    if (text == show)
        return Request{};
    if (!text.startsWith(show.toByteArray() + ' '))
        return std::nullopt;
    return Request{windowActionNamed(QString::fromLatin1(text.sliced(show.size() + 1)))};
}

/// The same for every path that leads to the folder.
QString socketNameOf(const FileURL& folder)
{
    const QByteArray path = FileManager::defaultManager().resolvingSymlinks(folder).nativePath();
    const QByteArray digest = QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex();
    return u"keelbright-"_s + QString::fromLatin1(digest);
}

/// In milliseconds, as the socket takes it.
int remaining(const QDeadlineTimer& deadline)
{
    return static_cast<int>(deadline.remainingTime());
}

} // namespace

SingleInstance::SingleInstance(const FileURL& folder, QObject* parent)
    : QObject(parent)
    , m_lock(folder)
    , m_socketName(socketNameOf(folder))
{
    // Such a socket has no file, which a full home could not hold and a crash would leave.
    m_server.setSocketOptions(QLocalServer::AbstractNamespaceOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::answerNext);
}

SingleInstance::Start SingleInstance::start(std::optional<WindowAction> action,
                                            std::chrono::milliseconds patience)
{
    constexpr unsigned long pause = 20; // milliseconds
    const QDeadlineTimer deadline(patience);
    do {
        const FolderLock::Outcome lock = m_lock.tryToTake();
        if (lock != FolderLock::Outcome::heldElsewhere && listen(lock))
            return Start::first;
        if (askFirst(requestFor(action), deadline))
            return Start::handedOver;
        QThread::msleep(pause); // the first has no socket yet, or not any more
    } while (!deadline.hasExpired());
    return Start::unanswered;
}

void SingleInstance::stopListening()
{
    m_server.close();
}

/// Without a lock the socket decides, of whose name there is one.
bool SingleInstance::listen(FolderLock::Outcome lock)
{
    const bool hasLock = lock == FolderLock::Outcome::taken;
    if (hasLock)
        QLocalServer::removeServer(m_socketName); // where sockets are files, a crash leaves one
    return m_server.listen(m_socketName) || hasLock ||
           m_server.serverError() != QAbstractSocket::AddressInUseError;
}

void SingleInstance::answerNext()
{
    QLocalSocket* peer = m_server.nextPendingConnection();
    connect(peer, &QLocalSocket::disconnected, peer, &QObject::deleteLater);
    if (!isPeerOfThisUser(peer->socketDescriptor())) {
        peer->abort();
        return;
    }
    const auto read = [this, peer] { readRequest(*peer); };
    connect(peer, &QLocalSocket::readyRead, this, read);
    read();
}

void SingleInstance::readRequest(QLocalSocket& peer)
{
    if (!peer.canReadLine()) {
        if (peer.bytesAvailable() > longestRequest)
            peer.abort();
        return;
    }
    if (const std::optional<Request> request = requestIn(peer.readLine())) {
        Q_EMIT activationRequested(request->action);
        peer.write(answer.data(), answer.size());
    }
    peer.disconnectFromServer();
}

bool SingleInstance::askFirst(const QByteArray& request, const QDeadlineTimer& deadline) const
{
    QLocalSocket first;
    first.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    first.connectToServer(m_socketName);
    if (!first.waitForConnected(remaining(deadline)) || !isPeerOfThisUser(first.socketDescriptor()))
        return false;
    first.write(request);
    while (first.bytesAvailable() < answer.size()) {
        if (!first.waitForReadyRead(remaining(deadline)))
            return false;
    }
    return first.readAll() == answer;
}

} // namespace keelbright
