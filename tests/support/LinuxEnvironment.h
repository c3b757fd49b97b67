#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "tests/support/EnvironmentVariable.h"

namespace keelbright::testing {

/// The environment of a desktop's session, which names no folder outside its home, no desktop and no
/// language. What was there before is there again when this goes.
class LinuxEnvironment
{
public:
    /// Takes effect from here on: the folders of settings and of data are the usual ones below the home,
    /// and so are all that the environment does not name. Messages are in the language of the sources. A test
    /// that wants another sets LC_ALL after this, which comes before what is unset here.
    void begin(const FileURL& home) const
    {
        m_configurationHome.set(home.appendingNative(".config").nativePath());
        m_dataHome.set(home.appendingNative(".local/share").nativePath());
        m_locale.set("C.UTF-8");
        for (const EnvironmentVariable* variable : {&m_cacheHome, &m_stateHome, &m_dataFolders,
                                                    &m_currentDesktop, &m_languages, &m_messages, &m_lang})
            variable->unset();
    }

private:
    EnvironmentVariable m_configurationHome{"XDG_CONFIG_HOME"};
    EnvironmentVariable m_dataHome{"XDG_DATA_HOME"};
    EnvironmentVariable m_cacheHome{"XDG_CACHE_HOME"};
    EnvironmentVariable m_stateHome{"XDG_STATE_HOME"};
    EnvironmentVariable m_dataFolders{"XDG_DATA_DIRS"};
    EnvironmentVariable m_currentDesktop{"XDG_CURRENT_DESKTOP"};
    EnvironmentVariable m_locale{"LC_ALL"};
    EnvironmentVariable m_languages{"LANGUAGE"};
    EnvironmentVariable m_messages{"LC_MESSAGES"};
    EnvironmentVariable m_lang{"LANG"};
};

} // namespace keelbright::testing
