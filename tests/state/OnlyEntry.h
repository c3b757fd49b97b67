#pragma once

#include "KeelbrightCore/records/ActivityStore.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

/// The one entry of the activity log; fails the test where there are more or none.
inline ActivityEntry onlyEntry(const ActivityStore& log)
{
    const QList<ActivityEntry> entries = log.load();
    EXPECT_EQ(entries.size(), 1);
    return entries.value(0);
}

} // namespace keelbright::testing
