#pragma once

#include "Keelbright/state/SleepBlocker.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <functional>

namespace keelbright {

/// Asks logind and the desktop's portal not to suspend. Some desktops suspend by the one and some by the
/// other; one that does not answer is skipped. The screen still goes dark and locks, and a closed lid still
/// suspends. Both drop what was asked of them as soon as the process
/// is gone.
class DesktopSleepBlocker : public SleepBlocker
{
public:
    using Bus = std::function<QDBusConnection()>;

    /// On the machine's buses, to which it connects at the first `block`.
    DesktopSleepBlocker();
    DesktopSleepBlocker(Bus systemBus, Bus sessionBus);
    ~DesktopSleepBlocker() override;
    Q_DISABLE_COPY_MOVE(DesktopSleepBlocker)

    void block(const QString& reason) override;
    void allow() override;

private:
    void askLogind(const QString& reason);
    void askPortal(const QString& reason);
    void call(const QDBusConnection& bus, const QDBusMessage& message,
              const std::function<void(const QDBusMessage& reply)>& onReply);

    Bus m_systemBus;
    Bus m_sessionBus;
    bool m_isBlocking = false;
    quint64 m_round = 0; ///< what is answered belongs to the `block` of its round
    QDBusUnixFileDescriptor m_logindLock;
    QDBusObjectPath m_portalRequest;
    QObject m_calls; ///< owns the calls that wait for an answer
};

} // namespace keelbright
