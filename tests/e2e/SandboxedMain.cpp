// The whole program on a machine in a folder: home, "/Applications" and the rest lie below the
// folder that KEELBRIGHT_TEST_ROOT names. The App Store is the server that KEELBRIGHT_TEST_STORE
// names ("http://127.0.0.1:8080"); without one it knows nothing, and no network is touched.

#include "Keelbright/screens/shell/Application.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "tests/support/SandboxFileManager.h"

#include <cstdio>

namespace {

using namespace keelbright;

QFuture<std::optional<iTunesAppInfo>> lookup(const QString& appName)
{
    const QString origin = qEnvironmentVariable("KEELBRIGHT_TEST_STORE");
    if (origin.isEmpty())
        return QtFuture::makeReadyFuture(std::optional<iTunesAppInfo>());
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
    testing::SandboxFileManager fileManager(FileURL::fromNativePath(root));
    const FileManagerGuard guard(fileManager);
    return runApplication(argc, argv, lookup);
}
