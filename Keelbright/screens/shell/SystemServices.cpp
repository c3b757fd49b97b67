#include "Keelbright/screens/shell/SystemServices.h"

#include "Keelbright/screens/shell/AttentionNotifier.h"
#include "Keelbright/screens/shell/DesktopNotifier.h"
#include "Keelbright/screens/shell/DesktopSleepBlocker.h"
#include "Keelbright/screens/shell/SystemSleepBlocker.h"
#include "KeelbrightCore/platform/system/SleepAssertion.h"
#include "KeelbrightCore/platform/system/WindowChrome.h"

#include <QApplication>
#include <QWidget>

namespace keelbright {

std::unique_ptr<SleepBlocker> makeSleepBlocker()
{
    if (SleepAssertion::isThere())
        return std::make_unique<SystemSleepBlocker>();
    return std::make_unique<DesktopSleepBlocker>();
}

std::unique_ptr<Notifier> makeNotifier(QWidget& window)
{
    // A system that keeps the promise itself has no desktop on a bus that could show a notification.
    if (SleepAssertion::isThere())
        return std::make_unique<AttentionNotifier>([&window] { QApplication::alert(&window); });
    return std::make_unique<DesktopNotifier>();
}

void adoptFrame(const QWidget& window)
{
    if (WindowChrome::isChangeable())
        WindowChrome::hideTitleBar(window.winId());
}

} // namespace keelbright
