#include "Keelbright/screens/shell/DesktopTaskBar.h"

#include "Keelbright/widgets/SessionBus.h"

#include <utility>

namespace keelbright {

using namespace Qt::StringLiterals;

DesktopTaskBar::DesktopTaskBar()
    : DesktopTaskBar(sessionBus())
{}

DesktopTaskBar::DesktopTaskBar(QDBusConnection bus)
    : m_bus(std::move(bus))
{}

void DesktopTaskBar::showProgress(double fraction)
{
    update({{u"progress"_s, fraction}, {u"progress-visible"_s, true}});
}

void DesktopTaskBar::hideProgress()
{
    update({{u"progress"_s, 0.0}, {u"progress-visible"_s, false}});
}

void DesktopTaskBar::update(const QVariantMap& properties)
{
    if (!m_bus.isConnected())
        return;
    QDBusMessage signal = QDBusMessage::createSignal(u"/com/keelbright/keelbright/taskbar"_s,
                                                     u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    signal.setArguments({u"application://keelbright.desktop"_s, properties});
    m_bus.send(signal);
}

} // namespace keelbright
