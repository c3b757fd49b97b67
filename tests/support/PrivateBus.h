#pragma once

#include <QDBusConnection>
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
        m_daemon.waitForReadyRead(5000);
        const QString address = QString::fromLatin1(m_daemon.readLine()).trimmed();
        m_client = QDBusConnection::connectToBus(address, clientName());
        m_server = QDBusConnection::connectToBus(address, serverName());
    }

    ~PrivateBus()
    {
        QDBusConnection::disconnectFromBus(clientName());
        QDBusConnection::disconnectFromBus(serverName());
        m_daemon.terminate();
        m_daemon.waitForFinished(5000);
    }

    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Empty where the machine has what a bus needs; that it works is for the test to assert.
    [[nodiscard]] const std::string& reasonMissing() const { return m_reasonMissing; }

    [[nodiscard]] QDBusConnection& client() { return m_client; }

    [[nodiscard]] QDBusConnection& server() { return m_server; }

private:
    [[nodiscard]] static QString clientName() { return QStringLiteral("client"); }

    [[nodiscard]] static QString serverName() { return QStringLiteral("server"); }

    std::string m_reasonMissing;
    QProcess m_daemon;
    QDBusConnection m_client{QString()};
    QDBusConnection m_server{QString()};
};

} // namespace keelbright::testing
