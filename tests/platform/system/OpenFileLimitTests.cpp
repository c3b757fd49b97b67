#include "KeelbrightCore/platform/system/OpenFileLimit.h"

#include "tests/support/HelperRun.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace keelbright {
namespace {

class OpenFileLimitTest : public ::testing::Test
{
protected:
    OpenFileLimitTest() { ::getrlimit(RLIMIT_NOFILE, &m_before); }

    ~OpenFileLimitTest() override { ::setrlimit(RLIMIT_NOFILE, &m_before); }

    void setLimit(rlim_t count) const
    {
        const rlimit limit{count, m_before.rlim_max};
        ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    }

    [[nodiscard]] static rlim_t limit()
    {
        rlimit now = {};
        ::getrlimit(RLIMIT_NOFILE, &now);
        return now.rlim_cur;
    }

    [[nodiscard]] rlim_t hardLimit() const { return m_before.rlim_max; }

private:
    rlimit m_before = {};
};

TEST_F(OpenFileLimitTest, isRaisedAsFarAsTheSystemAllows)
{
    setLimit(256);
    OpenFileLimit::raise();
    EXPECT_EQ(limit(), std::min<rlim_t>(4'096, hardLimit()));
}

TEST_F(OpenFileLimitTest, isNeverLowered)
{
    if (hardLimit() < 5'000)
        GTEST_SKIP() << "the system allows fewer than 5,000 open files";
    setLimit(5'000);
    OpenFileLimit::raise();
    EXPECT_EQ(limit(), 5'000U);
}

TEST_F(OpenFileLimitTest, isTheOneOfBeforeInAChildThatIsForked)
{
    setLimit(256);
    OpenFileLimit::raise();
    ASSERT_GT(limit(), 256U);
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(limit() == 256 ? 0 : 1);
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

TEST_F(OpenFileLimitTest, isTheOneOfBeforeInAHelper)
{
    setLimit(256);
    OpenFileLimit::raise();
    ASSERT_GT(limit(), 256U);
    // It gets its limit while it already runs.
    const auto helper =
        testing::runToItsEnd(FileURL::fromNativePath("/bin/sh"),
                             {"-c", "tries=0; until [ \"$(ulimit -S -n)\" = 256 ] || [ $tries = 20000 ]; do "
                                    "tries=$((tries + 1)); done; ulimit -S -n"});
    ASSERT_TRUE(helper.has_value());
    EXPECT_EQ(helper->standardOutput, "256\n");
}

} // namespace
} // namespace keelbright
