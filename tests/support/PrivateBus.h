#pragma once

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QStandardPaths>
#include <string>

namespace keelbright::testing {

/// A message bus of the test's own, with one connection for the program and one for what it talks
/// to, while it lives. Where there can be none, `reasonMissing()` says why.
class PrivateBus
{
public:
    PrivateBus()
    {
        const QString daemon = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
        if (daemon.isEmpty()) {
            m_reasonMissing = "dbus-daemon is not installed";
            return;
        }
        m_daemon.start(daemon, {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1")});
        m_daemon.waitForReadyRead(patience);
        const QString address = QString::fromLatin1(m_daemon.readLine()).trimmed();
        m_client = QDBusConnection::connectToBus(address, clientName());
        m_server = QDBusConnection::connectToBus(address, serverName());
    }

    ~PrivateBus()
    {
        QDBusConnection::disconnectFromBus(clientName());
        QDBusConnection::disconnectFromBus(serverName());
        m_daemon.terminate();
        m_daemon.waitForFinished(patience);
    }

    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Empty where the machine has what a bus needs; that it works is for the test to assert.
    [[nodiscard]] const std::string& reasonMissing() const { return m_reasonMissing; }

    [[nodiscard]] QDBusConnection& client() { return m_client; }

    [[nodiscard]] QDBusConnection& server() { return m_server; }

    /// Delivers what either side has sent so far, and what was answered to it.
    void carryEverythingOver()
    {
        // A bus keeps the order of what a connection sends, so its answer comes behind all that was
        // sent to that connection before. An answer of the one side can be a question to the other.
        for (int way = 0; way < 3; ++way) {
            for (const QDBusConnection& connection : {m_client, m_server})
                (void)connection.call(QDBusMessage::createMethodCall(
                    QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                    QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
            QCoreApplication::sendPostedEvents();
        }
    }

private:
    static constexpr int patience = 60'000; // milliseconds

    [[nodiscard]] static QString clientName() { return QStringLiteral("client"); }

    [[nodiscard]] static QString serverName() { return QStringLiteral("server"); }

    std::string m_reasonMissing;
    QProcess m_daemon;
    QDBusConnection m_client{QString()};
    QDBusConnection m_server{QString()};
};

} // namespace keelbright::testing
