#pragma once

#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/support/StallProbe.h"

#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <benchmark/benchmark.h>

// What is measured of screens is the longest turn of the main thread, from what the user did until the
// last picture of it: its own work, and beside it (`stall`, milliseconds) for how long the window did
// not answer, which a shared machine adds to. The work in the background is not in it.

namespace keelbright::bench {

/// A frame, the picture of it, and what comes after.
inline void settle()
{
    constexpr int milliseconds = 120;
    QTest::qWait(milliseconds);
}

template <typename Act> void measureStall(benchmark::State& state, Act act)
{
    const testing::StallProbe probe;
    QTest::qWait(5);
    act();
    settle();
    state.SetIterationTime(probe.longestWorkSeconds());
    auto& stall = state.counters["stall"];
    stall = std::max<double>(stall, probe.longestSeconds() * 1e3);
}

/// From the first row to the last, a picture at each of twenty stops.
inline void scrollToTheEnd(const RowListView& list)
{
    constexpr int stops = 20;
    constexpr int frame = 16;
    for (int stop = 0; stop <= stops; ++stop) {
        list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum() / stops * stop);
        QTest::qWait(frame);
    }
}

/// A case that tells its time by `measureStall`.
inline void asStall(benchmark::internal::Benchmark* named)
{
    constexpr int repetitions = 5;
    named->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(repetitions);
}

} // namespace keelbright::bench
