#include "Keelbright/screens/shell/DesktopWorkspace.h"

#include "Keelbright/widgets/SessionBus.h"
#include "KeelbrightCore/platform/system/Finder.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QUrl>
#include <utility>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

/// The call by which file browsers let other programs show a file.
QDBusMessage showItemsCall(const FileURL& url)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    message.setArguments({QStringList{url.absoluteString()}, QString()});
    return message;
}

} // namespace

DesktopWorkspace::DesktopWorkspace()
    : DesktopWorkspace(sessionBus())
{}

DesktopWorkspace::DesktopWorkspace(QDBusConnection bus)
    : m_bus(std::move(bus))
{}

void DesktopWorkspace::open(const FileURL& url)
{
    // The encoded form can hold names that are not valid UTF-8.
    QDesktopServices::openUrl(QUrl::fromEncoded(url.absoluteString().toLatin1(), QUrl::StrictMode));
}

void DesktopWorkspace::reveal(const FileURL& url)
{
    if (Finder::reveal(url))
        return;
    if (!m_bus.isConnected()) {
        open(url.deletingLastPathComponent());
        return;
    }
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(showItemsCall(url)), &m_calls);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_calls, [this, watcher, url] {
        watcher->deleteLater();
        if (watcher->isError())
            open(url.deletingLastPathComponent());
    });
}

} // namespace keelbright
