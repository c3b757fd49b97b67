#include "Keelbright/state/KeelbrightApp.h"

#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"

namespace keelbright {

namespace {

constexpr int patience = 2000; ///< milliseconds for a run to end at quitting

} // namespace

KeelbrightApp::KeelbrightApp(FolderChooser& folderChooser)
    : m_userDefaults(UserDefaults::standard())
    , m_state({BackupConfigStore::shared(), ActivityStore::shared(), m_userDefaults, folderChooser})
{}

bool KeelbrightApp::shutDown()
{
    return m_state.engine().shutDown(patience);
}

} // namespace keelbright
