#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "tests/support/EnvironmentVariable.h"

namespace keelbright::testing {

/// The environment of a desktop's session, which names no folder outside its home and no desktop. What
/// was there before is there again when this goes.
class LinuxEnvironment
{
public:
    /// Takes effect from here on: the folders of settings and of data are the usual ones below the home,
    /// and so are all that the environment does not name.
    void begin(const FileURL& home) const
    {
        m_configurationHome.set(home.appendingNative(".config").nativePath());
        m_dataHome.set(home.appendingNative(".local/share").nativePath());
        for (const EnvironmentVariable* variable :
             {&m_cacheHome, &m_stateHome, &m_dataFolders, &m_currentDesktop})
            variable->unset();
    }

private:
    EnvironmentVariable m_configurationHome{"XDG_CONFIG_HOME"};
    EnvironmentVariable m_dataHome{"XDG_DATA_HOME"};
    EnvironmentVariable m_cacheHome{"XDG_CACHE_HOME"};
    EnvironmentVariable m_stateHome{"XDG_STATE_HOME"};
    EnvironmentVariable m_dataFolders{"XDG_DATA_DIRS"};
    EnvironmentVariable m_currentDesktop{"XDG_CURRENT_DESKTOP"};
};

} // namespace keelbright::testing
