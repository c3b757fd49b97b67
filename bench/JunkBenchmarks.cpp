#include "KeelbrightCore/health/HealthScoreService.h"
#include "KeelbrightCore/health/JunkScanner.h"
#include "bench/BenchTree.h"
#include "tests/support/TestLinux.h"

#include <benchmark/benchmark.h>

namespace keelbright::bench {
namespace {

/// The estimate of junk, including the disk's capacity and the way to the thread pool and back.
void computeHealthScore(benchmark::State& state)
{
    const testing::TestMac mac;
    makeTree(mac, "Users/mira/Library/Caches", fileCount());
    for (auto _ : state)
        benchmark::DoNotOptimize(HealthScoreService::compute(std::nullopt, mac.clock()).result());
    state.SetItemsProcessed(state.iterations() * fileCount());
}

BENCHMARK(computeHealthScore)->Unit(benchmark::kMillisecond)->UseRealTime();

void scanJunk(benchmark::State& state)
{
    const testing::TestMac mac;
    makeTree(mac, "Users/mira/Library/Caches", fileCount());
    for (auto _ : state)
        benchmark::DoNotOptimize(JunkScanner::scan().result());
    state.SetItemsProcessed(state.iterations() * fileCount());
}

BENCHMARK(scanJunk)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A Linux home after years of use, with three times the files of the other trees in its caches.
void scanJunkOfLinuxHome(benchmark::State& state)
{
    testing::TestLinux machine;
    const int files = 3 * fileCount();
    makeTree(machine.machine(), "home/mira/.cache", files);
    for (auto _ : state)
        benchmark::DoNotOptimize(JunkScanner::scan().result());
    state.SetItemsProcessed(state.iterations() * files);
}

// So many files take long to make; without a fixed number of iterations every trial would make them again.
BENCHMARK(scanJunkOfLinuxHome)->Iterations(5)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace keelbright::bench
