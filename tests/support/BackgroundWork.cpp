#include "tests/support/BackgroundWork.h"

#include "KeelbrightCore/platform/system/TaskPools.h"

#include <QDeadlineTimer>
#include <QThread>
#include <gtest/gtest.h>

namespace keelbright::testing {

void waitForBackgroundWork()
{
    const QDeadlineTimer deadline(60'000);
    while (TaskPools::isAtWork()) {
        if (deadline.hasExpired()) {
            ADD_FAILURE() << "the background work did not end";
            return;
        }
        QThread::msleep(1);
    }
}

} // namespace keelbright::testing
