#include "Keelbright/screens/shell/DesktopSleepBlocker.h"

#include "Keelbright/widgets/SessionBus.h"
#include "KeelbrightCore/platform/system/Logging.h"

#include <QDBusPendingCallWatcher>
#include <utility>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr auto portalService = "org.freedesktop.portal.Desktop"_L1;

QDBusMessage logindCall(const QString& reason)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                                       u"org.freedesktop.login1.Manager"_s, u"Inhibit"_s);
    message.setArguments({u"sleep"_s, u"Keel Bright"_s, reason, u"block"_s});
    return message;
}

QDBusMessage portalCall(const QString& reason)
{
    constexpr uint suspend = 4;
    QDBusMessage message = QDBusMessage::createMethodCall(portalService, u"/org/freedesktop/portal/desktop"_s,
                                                          u"org.freedesktop.portal.Inhibit"_s, u"Inhibit"_s);
    message.setArguments({QString(), suspend, QVariantMap{{u"reason"_s, reason}}});
    return message;
}

/// Ends what the portal has granted.
void closeRequest(const QDBusConnection& bus, const QDBusObjectPath& request)
{
    bus.send(QDBusMessage::createMethodCall(portalService, request.path(),
                                            u"org.freedesktop.portal.Request"_s, u"Close"_s));
}

} // namespace

DesktopSleepBlocker::DesktopSleepBlocker()
    : DesktopSleepBlocker([] { return QDBusConnection::systemBus(); },
                          [] { return keelbright::sessionBus(); })
{}

DesktopSleepBlocker::DesktopSleepBlocker(Bus systemBus, Bus sessionBus)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
{}

DesktopSleepBlocker::~DesktopSleepBlocker()
{
    DesktopSleepBlocker::allow();
}

void DesktopSleepBlocker::block(const QString& reason)
{
    if (std::exchange(m_isBlocking, true))
        return;
    ++m_round;
    askLogind(reason);
    askPortal(reason);
}

void DesktopSleepBlocker::allow()
{
    if (!std::exchange(m_isBlocking, false))
        return;
    ++m_round;
    m_logindLock = {}; // closing it is how logind is asked
    if (!m_portalRequest.path().isEmpty())
        closeRequest(m_sessionBus(), std::exchange(m_portalRequest, {}));
}

void DesktopSleepBlocker::askLogind(const QString& reason)
{
    call(m_systemBus(), logindCall(reason), [this, round = m_round](const QDBusMessage& reply) {
        if (round == m_round)
            m_logindLock = reply.arguments().value(0).value<QDBusUnixFileDescriptor>();
    });
}

void DesktopSleepBlocker::askPortal(const QString& reason)
{
    call(m_sessionBus(), portalCall(reason), [this, round = m_round](const QDBusMessage& reply) {
        const auto request = reply.arguments().value(0).value<QDBusObjectPath>();
        if (round == m_round)
            m_portalRequest = request;
        else if (!request.path().isEmpty())
            closeRequest(m_sessionBus(), request); // granted after the end
    });
}

void DesktopSleepBlocker::call(const QDBusConnection& bus, const QDBusMessage& message,
                               const std::function<void(const QDBusMessage& reply)>& onReply)
{
    if (!bus.isConnected())
        return;
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), &m_calls);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_calls, [watcher, onReply] {
        watcher->deleteLater();
        if (watcher->isError())
            qCDebug(screensLog).noquote() << "sleep can't be blocked:" << watcher->error().message();
        else
            onReply(watcher->reply());
    });
}

} // namespace keelbright
