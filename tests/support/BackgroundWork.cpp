#include "tests/support/BackgroundWork.h"

#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QDeadlineTimer>
#include <QThread>
#include <QThreadPool>
#include <gtest/gtest.h>

namespace keelbright::testing {

void waitForBackgroundWork()
{
    // A task hands the next one in before it ends, so each look finds one of the two at work.
    const auto isAtWork = [] {
        return TaskPools::utility().activeThreadCount() > 0 ||
               TaskPools::userInitiated().activeThreadCount() > 0 ||
               TaskPools::utility().activeThreadCount() > 0;
    };
    const QDeadlineTimer deadline(60'000);
    while (isAtWork()) {
        if (deadline.hasExpired()) {
            ADD_FAILURE() << "the background work did not end";
            return;
        }
        QThread::msleep(1);
    }
}

} // namespace keelbright::testing
