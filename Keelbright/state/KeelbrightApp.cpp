#include "Keelbright/state/KeelbrightApp.h"

#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"

#include <QCoreApplication>
#include <QEvent>

namespace keelbright {

namespace {

/// In milliseconds, for a run that is under way at quitting.
constexpr int shutDownTimeout = 2000;

} // namespace

KeelbrightApp::KeelbrightApp(FolderChooser& folderChooser, AppLookup lookup)
    : m_userDefaults(UserDefaults::standard())
    , m_state({.configStore = BackupConfigStore::shared(),
               .activityStore = ActivityStore::shared(),
               .userDefaults = m_userDefaults,
               .folderChooser = folderChooser,
               .lookup = std::move(lookup)})
{}

bool KeelbrightApp::shutDown()
{
    const bool hasEnded = m_state.engine().shutDown(shutDownTimeout);
    // A backup that has ended in this very moment is still saved and logged.
    QCoreApplication::sendPostedEvents(&m_state, QEvent::MetaCall);
    return hasEnded;
}

} // namespace keelbright
