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

constexpr QByteArrayView request = "show\n";
constexpr QByteArrayView answer = "shown\n";

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

SingleInstance::Start SingleInstance::start(std::chrono::milliseconds patience)
{
    constexpr unsigned long pause = 20; // milliseconds
    const QDeadlineTimer deadline(patience);
    do {
        const FolderLock::Outcome lock = m_lock.tryToTake();
        if (lock != FolderLock::Outcome::heldElsewhere && listen(lock))
            return Start::first;
        if (askFirst(deadline))
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
    const auto read = [this, peer] {
        if (peer->bytesAvailable() < request.size())
            return;
        if (peer->readAll() == request) {
            Q_EMIT activationRequested();
            peer->write(answer.data(), answer.size());
        }
        peer->disconnectFromServer();
    };
    connect(peer, &QLocalSocket::readyRead, this, read);
    read();
}

bool SingleInstance::askFirst(const QDeadlineTimer& deadline) const
{
    QLocalSocket first;
    first.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    first.connectToServer(m_socketName);
    if (!first.waitForConnected(remaining(deadline)) || !isPeerOfThisUser(first.socketDescriptor()))
        return false;
    first.write(request.data(), request.size());
    while (first.bytesAvailable() < answer.size()) {
        if (!first.waitForReadyRead(remaining(deadline)))
            return false;
    }
    return first.readAll() == answer;
}

} // namespace keelbright
