#include "Keelbright/screens/shell/ApplicationService.h"

#include <QDBusError>
#include <QDBusMessage>
#include <utility>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr auto applicationInterface = "org.freedesktop.Application"_L1;
constexpr uint doNotQueue = 4; // a name that is taken stays with its owner

QDBusMessage callOfBus(const QString& method, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, method);
    message.setArguments(arguments);
    return message;
}

} // namespace

QString ApplicationService::serviceName()
{
    return u"com.keelbright.keelbright"_s;
}

QString ApplicationService::objectPath()
{
    return u"/com/keelbright/keelbright"_s;
}

ApplicationService::ApplicationService(QDBusConnection bus)
    : m_bus(std::move(bus))
{
    if (!m_bus.isConnected())
        return;
    m_bus.registerVirtualObject(objectPath(), this);
    m_bus.send(callOfBus(u"RequestName"_s, {serviceName(), doNotQueue}));
}

ApplicationService::~ApplicationService()
{
    if (!m_bus.isConnected())
        return;
    m_bus.unregisterObject(objectPath());
    m_bus.send(callOfBus(u"ReleaseName"_s, {serviceName()}));
}

QString ApplicationService::introspect(const QString& path) const
{
    if (path != objectPath())
        return {};
    return uR"(<interface name="org.freedesktop.Application">
  <method name="Activate"><arg type="a{sv}" direction="in"/></method>
  <method name="Open"><arg type="as" direction="in"/><arg type="a{sv}" direction="in"/></method>
  <method name="ActivateAction">
    <arg type="s" direction="in"/><arg type="av" direction="in"/><arg type="a{sv}" direction="in"/>
  </method>
</interface>
)"_s;
}

bool ApplicationService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    if (message.interface() != applicationInterface)
        return false;
    const QString method = message.member();
    std::optional<WindowAction> action;
    if (method == "ActivateAction"_L1) {
        const QString name = message.arguments().value(0).toString();
        action = windowActionNamed(name);
        if (!action) {
            connection.send(
                message.createErrorReply(QDBusError::InvalidArgs, u"no action \"%1\""_s.arg(name)));
            return true;
        }
    } else if (method != "Activate"_L1 && method != "Open"_L1) { // it opens no files, only its window
        connection.send(
            message.createErrorReply(QDBusError::UnknownMethod, u"no method \"%1\""_s.arg(method)));
        return true;
    }
    if (message.isReplyRequired())
        connection.send(message.createReply());
    Q_EMIT activationRequested(action);
    return true;
}

} // namespace keelbright
