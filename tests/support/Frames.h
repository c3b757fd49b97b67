#pragma once

#include "Keelbright/widgets/FrameThrottle.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace keelbright::testing {

/// Turns the event loop until everything announced so far has been drawn, and what that announced in
/// turn; fails the test after a minute.
///
/// Time alone would not do: a wait of forty milliseconds can end without a single look at the timers
/// where the machine is busy. A timer that starts behind those of the redraws also ends behind them.
inline void turnFrames()
{
    constexpr int patience = 60'000;
    for (int frame = 0; frame < 2; ++frame) {
        // What is queued has to ask for its redraw first.
        QCoreApplication::sendPostedEvents();
        QTimer behind;
        behind.setSingleShot(true);
        behind.setTimerType(Qt::PreciseTimer);
        behind.start(FrameThrottle::frameMilliseconds + 1);
        EXPECT_TRUE(QTest::qWaitFor([&behind] { return !behind.isActive(); }, patience)) << "no frame came";
    }
}

} // namespace keelbright::testing
