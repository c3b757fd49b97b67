#include "Keelbright/screens/shell/DesktopNotifier.h"

#include "Keelbright/widgets/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr auto service = "org.freedesktop.Notifications"_L1;
constexpr auto path = "/org/freedesktop/Notifications"_L1;
constexpr auto clickAction = "default"_L1; // the one of the notification itself, which has no button
constexpr int desktopsOwnTime = -1;

/// The text may hold markup, so what would begin some is escaped.
QString withoutMarkup(QString text)
{
    return text.replace(u'&', u"&amp;"_s).replace(u'<', u"&lt;"_s).replace(u'>', u"&gt;"_s);
}

QDBusMessage notifyCall(const Notification& notification, uint replaced, const QString& actionName)
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, service, u"Notify"_s);
    message.setArguments({u"Keel Bright"_s, replaced, u"keelbright"_s, notification.title,
                          withoutMarkup(notification.text), QStringList{clickAction, actionName},
                          QVariantMap{{u"desktop-entry"_s, u"keelbright"_s}}, desktopsOwnTime});
    return message;
}

} // namespace

DesktopNotifier::DesktopNotifier()
    : DesktopNotifier(sessionBus())
{}

DesktopNotifier::DesktopNotifier(QDBusConnection bus)
    : m_bus(std::move(bus))
{}

void DesktopNotifier::show(const Notification& notification, std::function<void()> onClick)
{
    if (!m_bus.isConnected())
        return;
    if (!std::exchange(m_onClick, std::move(onClick)))
        m_bus.connect(service, path, service, u"ActionInvoked"_s, this, SLOT(invokeAction(uint, QString)));
    const QDBusMessage message = notifyCall(notification, m_shown, tr("Show"));
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        if (reply.isValid())
            m_shown = reply.value();
    });
}

void DesktopNotifier::invokeAction(uint id, const QString& action)
{
    if (id == m_shown && action == clickAction && m_onClick)
        m_onClick();
}

} // namespace keelbright
