#include "KeelbrightCore/platform/files/Unsupported.h"

#include <gtest/gtest.h>

namespace keelbright {
namespace {

TEST(Unsupported, isWhatASystemAnswersThatHasNoSuchCall)
{
    for (const int code : {ENOTSUP, EOPNOTSUPP, ENOSYS, ENOTTY})
        EXPECT_TRUE(meansUnsupported(code)) << code;
}

TEST(Unsupported, isNoFailureOfTheCallItself)
{
    for (const int code : {0, EIO, ENOSPC, EACCES, EPERM, EINVAL, ENOENT, EEXIST})
        EXPECT_FALSE(meansUnsupported(code)) << code;
}

} // namespace
} // namespace keelbright
