#include "Keelbright/screens/shell/DesktopPresence.h"

#include "Keelbright/screens/shell/MainWindow.h"
#include "Keelbright/screens/shell/SingleInstance.h"
#include "Keelbright/screens/shell/SystemServices.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/SessionBus.h"

#include <QApplication>

namespace keelbright {

DesktopPresence::DesktopPresence(AppState& state, MainWindow& window, const SingleInstance& instance)
    : m_requests(state, window)
    , m_service(sessionBus())
    , m_sleepBlocker(makeSleepBlocker())
    , m_awakeBackup(state.engine(), *m_sleepBlocker)
    , m_notifier(makeNotifier(window))
    , m_backupEndNotice(state, *m_notifier,
                        {[] { return QApplication::activeWindow() != nullptr; },
                         [this] { m_requests.activate(std::nullopt); }})
    , m_destinationDrive(state)
    , m_backupInTaskBar(state, m_taskBar)
{
    QObject::connect(&instance, &SingleInstance::activationRequested, &m_requests,
                     &DesktopRequests::activate);
    QObject::connect(&m_service, &ApplicationService::activationRequested, &m_requests,
                     &DesktopRequests::activate);
}

} // namespace keelbright
