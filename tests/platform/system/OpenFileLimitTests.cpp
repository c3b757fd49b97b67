#include "KeelbrightCore/platform/system/OpenFileLimit.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

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

} // namespace
} // namespace keelbright
