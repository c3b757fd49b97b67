#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright::testing {

/// Makes folders "level" within each other, deeper than the longest path, each beside an empty one,
/// "beside", that file systems of some orders list only after the way back up.
inline void makeLevels(const FileURL& root, int levels)
{
    int folder = ::open(root.nativePath().constData(), O_RDONLY | O_DIRECTORY);
    for (int level = 0; level < levels; ++level) {
        ASSERT_EQ(::mkdirat(folder, "level", 0755), 0);
        ASSERT_EQ(::mkdirat(folder, "beside", 0755), 0);
        const int next = ::openat(folder, "level", O_RDONLY | O_DIRECTORY);
        ASSERT_GE(next, 0);
        ::close(folder);
        folder = next;
    }
    ::close(folder);
}

} // namespace keelbright::testing
