#include "KeelbrightCore/platform/system/FileSizeLimit.h"
#include "tests/support/TestMac.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace keelbright {
namespace {

constexpr rlim_t limit = 1'000;

/// Writes more than the process may; meant for a process of its own.
[[noreturn]] void writeTooMuch(FileManager& files, const FileURL& file)
{
    const rlimit small{limit, limit};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const auto written = files.writeAtomically(file, QByteArray(2 * limit, 'x'));
    std::fputs(written ? "written" : written.error().localizedDescription().toUtf8().constData(), stderr);
    std::_Exit(0);
}

TEST(FileSizeLimit, endsTheProcessUnlessItIsReportedAsAnError)
{
    testing::TestMac mac;
    const FileURL file = mac.writeFile("folder/file", "old");
    EXPECT_EXIT(
        {
            static_cast<void>(std::signal(SIGXFSZ, SIG_DFL));
            writeTooMuch(mac.fileManager(), file);
        },
        ::testing::KilledBySignal(SIGXFSZ), "");
    EXPECT_EXIT(
        {
            reportFileSizeLimitAsError();
            writeTooMuch(mac.fileManager(), file);
        },
        ::testing::ExitedWithCode(0), "“file” could not be written: the file is too large for the drive.");
    EXPECT_EQ(testing::TestMac::read(file), "old");
}

} // namespace
} // namespace keelbright
