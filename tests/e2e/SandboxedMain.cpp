// Runs the whole program on a made-up machine: home, "/Applications" and all other places are below the
// folder in KEELBRIGHT_TEST_ROOT. With KEELBRIGHT_TEST_MACHINE=linux it is a Linux desktop, else a Mac.
// The App Store is the server in KEELBRIGHT_TEST_STORE ("http://127.0.0.1:8080"); without one no application
// is found, and no network is used.

#include "Keelbright/screens/shell/Application.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/ReadyFuture.h"
#include "tests/support/SandboxFileManager.h"

#include <cstdio>

namespace {

using namespace keelbright;

QFuture<std::optional<iTunesAppInfo>> lookup(const QString& appName)
{
    const QString origin = qEnvironmentVariable("KEELBRIGHT_TEST_STORE");
    if (origin.isEmpty())
        return readyFuture(std::optional<iTunesAppInfo>());
    return iTunesLookupService::lookup(appName, {.origin = origin});
}

} // namespace

int main(int argc, char** argv)
{
    const QByteArray root = qgetenv("KEELBRIGHT_TEST_ROOT");
    if (!root.startsWith('/')) {
        std::fputs("KEELBRIGHT_TEST_ROOT has to name the folder of a made-up machine\n", stderr);
        return 2;
    }
    const QByteArray kind = qgetenv("KEELBRIGHT_TEST_MACHINE");
    if (!kind.isEmpty() && kind != "linux") {
        std::fputs("KEELBRIGHT_TEST_MACHINE has to be \"linux\" or absent\n", stderr);
        return 2;
    }
    testing::SandboxFileManager fileManager(FileURL::fromNativePath(root));
    fileManager.setIsMac(kind.isEmpty());
    const FileManagerGuard guard(fileManager);
    return runApplication(argc, argv, lookup);
}
