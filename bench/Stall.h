#pragma once

#include "Keelbright/widgets/rows/RowListView.h"
#include "tests/support/StallProbe.h"

#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <benchmark/benchmark.h>

// Screens are measured by the longest turn of the main thread from a user's action to the last redraw:
// the processor time of that turn, and as `stall` (milliseconds) the time in which the window did not
// answer, which other programs can prolong. Work in the background is not included.

namespace keelbright::bench {

/// Long enough for a frame, its painting and the work that follows it.
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

/// Scrolls from the first row to the last, with a redraw at each of twenty stops.
inline void scrollToTheEnd(const RowListView& list)
{
    constexpr int stops = 20;
    constexpr int frame = 16;
    for (int stop = 0; stop <= stops; ++stop) {
        list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum() / stops * stop);
        QTest::qWait(frame);
    }
}

/// Makes a benchmark take its time from `measureStall`.
inline void asStall(benchmark::internal::Benchmark* named)
{
    constexpr int repetitions = 5;
    named->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(repetitions);
}

} // namespace keelbright::bench
