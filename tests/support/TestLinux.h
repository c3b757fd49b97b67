#pragma once

#include "tests/support/MadeUpLinux.h"
#include "tests/support/TestMac.h"

namespace keelbright::testing {

/// A Linux desktop in a temporary folder, standing for the real machine while it lives. Its home is
/// `<root>/home/mira` and has no "Library"; the environment names no folder elsewhere and no desktop.
class TestLinux
{
public:
    TestLinux();

    [[nodiscard]] FileURL root() const { return m_machine.root(); }

    [[nodiscard]] FileURL home() const { return m_machine.fileManager().homeDirectory(); }

    [[nodiscard]] FileURL atHome(const QByteArray& path) const { return home().appendingNative(path); }

    [[nodiscard]] SandboxFileManager& fileManager() { return m_machine.fileManager(); }

    /// What is in the home is up to the test.
    [[nodiscard]] MadeUpLinux madeUp(MadeUpLinux::Desktop desktop,
                                     MadeUpLinux::Language language = MadeUpLinux::Language::english) const;

    /// Files below the root, aged from the machine's clock.
    [[nodiscard]] MadeUpFiles files() const;

    [[nodiscard]] Clock clock() const { return m_machine.clock(); }

    [[nodiscard]] TestMac& machine() { return m_machine; }

private:
    TestMac m_machine;
    EnvironmentVariable m_configurationHome{"XDG_CONFIG_HOME"};
    EnvironmentVariable m_dataHome{"XDG_DATA_HOME"};
    EnvironmentVariable m_cacheHome{"XDG_CACHE_HOME"};
    EnvironmentVariable m_stateHome{"XDG_STATE_HOME"};
    EnvironmentVariable m_dataFolders{"XDG_DATA_DIRS"};
    EnvironmentVariable m_currentDesktop{"XDG_CURRENT_DESKTOP"};
};

} // namespace keelbright::testing
