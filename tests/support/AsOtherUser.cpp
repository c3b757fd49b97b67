#include "tests/support/AsOtherUser.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace keelbright::testing {

namespace {

constexpr uid_t nobody = 65534;
constexpr int notLetIn = 3;

} // namespace

std::string asOtherUser(const FileURL& passable, const std::function<void()>& work)
{
    if (::geteuid() != 0)
        return "only root may act as another user";
    const char* folder = passable.nativePath().constData();
    struct stat status = {};
    if (::stat(folder, &status) != 0 || ::chmod(folder, (status.st_mode & 07777U) | S_IXOTH) != 0)
        return "no folder that another user may enter";
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0)
        return std::string("no child process: ") + std::strerror(errno);
    if (child == 0) {
        if (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0)
            ::_exit(2);
        if (::access(folder, X_OK) != 0)
            ::_exit(notLetIn);
        work();
        std::fflush(nullptr);
        // No destructor of the parent's objects runs twice.
        ::_exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int result = 0;
    while (::waitpid(child, &result, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(result) && WEXITSTATUS(result) == notLetIn)
        return "another user may not enter the folder for temporary files";
    if (!WIFEXITED(result) || WEXITSTATUS(result) != 0)
        ADD_FAILURE() << "the work as another user failed, status " << result;
    return {};
}

} // namespace keelbright::testing
