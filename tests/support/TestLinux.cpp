#include "tests/support/TestLinux.h"

#include <filesystem>

namespace keelbright::testing {

TestLinux::TestLinux()
{
    m_machine.fileManager().setIsMac(false);
    std::filesystem::create_directories(home().nativePath().toStdString());
    m_environment.begin(home());
}

MadeUpLinux TestLinux::madeUp(MadeUpLinux::Desktop desktop, MadeUpLinux::Language language) const
{
    return {files(), desktop, language};
}

MadeUpFiles TestLinux::files() const
{
    return {root(), m_machine.clock()()};
}

} // namespace keelbright::testing
