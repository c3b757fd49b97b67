#include "KeelbrightCore/platform/system/MainThread.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <benchmark/benchmark.h>
#include <thread>

namespace keelbright::bench {
namespace {

/// A stream of changes, each waited for, as a run hands them to the main thread.
void hop(benchmark::State& state)
{
    int argumentCount = 1;
    char name[] = "bench";
    char* arguments[] = {name, nullptr};
    QCoreApplication application(argumentCount, arguments);
    constexpr int changes = 10'000;
    for (auto _ : state) {
        MainThreadHop way;
        qint64 made = 0;
        std::atomic<bool> hasEnded = false;
        std::thread task([&] {
            for (int i = 0; i < changes; ++i)
                std::ignore = way.hop([&made] { ++made; });
            hasEnded = true;
        });
        while (!hasEnded)
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 5);
        task.join();
        benchmark::DoNotOptimize(made);
    }
    state.SetItemsProcessed(state.iterations() * changes);
}

BENCHMARK(hop)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace keelbright::bench
