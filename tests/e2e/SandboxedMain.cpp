// The whole program on a machine in a folder: home, "/Applications" and the rest lie below the
// folder that KEELBRIGHT_TEST_ROOT names.

#include "Keelbright/screens/Application.h"
#include "KeelbrightCore/platform/FileManager.h"
#include "tests/support/SandboxFileManager.h"

#include <cstdio>

int main(int argc, char** argv)
{
    using namespace keelbright;
    const QByteArray root = qgetenv("KEELBRIGHT_TEST_ROOT");
    if (!root.startsWith('/')) {
        std::fputs("KEELBRIGHT_TEST_ROOT has to name the folder of a made-up machine\n", stderr);
        return 2;
    }
    testing::SandboxFileManager fileManager(FileURL::fromNativePath(root));
    const FileManagerGuard guard(fileManager);
    return runApplication(argc, argv);
}
