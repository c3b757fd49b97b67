#pragma once

#include "tests/support/LinuxEnvironment.h"
#include "tests/support/MadeUpLinux.h"
#include "tests/support/TestMac.h"

namespace keelbright::testing {

/// A Linux desktop in a temporary folder, standing for the real machine while it lives. Its home is
/// `<root>/home/mira` and has no "Library"; the environment names no folder elsewhere, no desktop and no
/// language.
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
    LinuxEnvironment m_environment;
};

} // namespace keelbright::testing
