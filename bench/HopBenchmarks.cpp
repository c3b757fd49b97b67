#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/BackupTask.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <benchmark/benchmark.h>
#include <thread>

namespace keelbright::bench {
namespace {

/// A stream of changes, each waited for, as a run hands them to the main thread.
void hop(benchmark::State& state)
{
    constexpr int changes = 10'000;
    for (auto _ : state) {
        BackupEngine engine;
        const auto task = BackupTask::create(engine);
        qint64 made = 0;
        std::atomic<bool> hasEnded = false;
        std::thread run([&] {
            for (int i = 0; i < changes; ++i)
                task->hop([&made](BackupEngine&) { ++made; });
            hasEnded = true;
        });
        while (!hasEnded)
            QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 5);
        run.join();
        benchmark::DoNotOptimize(made);
    }
    state.SetItemsProcessed(state.iterations() * changes);
}

BENCHMARK(hop)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace keelbright::bench
