#include "Keelbright/state/KeelbrightApp.h"

#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"

namespace keelbright {

namespace {

constexpr int patience = 2000; ///< milliseconds for a run to end at quitting

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
    return m_state.engine().shutDown(patience);
}

} // namespace keelbright
