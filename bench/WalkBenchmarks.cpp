#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "bench/BenchTree.h"

#include <benchmark/benchmark.h>

namespace keelbright::bench {
namespace {

void estimate(benchmark::State& state)
{
    const testing::TestMac mac;
    const FileURL root = makeTree(mac, "tree", fileCount());
    FileScanner::ScanResult result;
    for (auto _ : state) {
        result = FileScanner::scan({{QUuid::createUuid(), root, true}});
        benchmark::DoNotOptimize(result);
    }
    state.SetItemsProcessed(state.iterations() * result.fileCount);
}

BENCHMARK(estimate)->Unit(benchmark::kMillisecond)->UseRealTime();

void enumerateNamesAndTypes(benchmark::State& state)
{
    const testing::TestMac mac;
    const FileURL root = makeTree(mac, "tree", fileCount());
    qint64 items = 0;
    for (auto _ : state) {
        auto walk = DirectoryEnumerator::open(root, {});
        while ((*walk)->next())
            ++items;
    }
    state.SetItemsProcessed(items);
}

BENCHMARK(enumerateNamesAndTypes)->Unit(benchmark::kMillisecond)->UseRealTime();

void enumerateWithSizes(benchmark::State& state)
{
    const testing::TestMac mac;
    const FileURL root = makeTree(mac, "tree", fileCount());
    qint64 items = 0;
    for (auto _ : state) {
        auto walk = DirectoryEnumerator::open(root, {});
        while ((*walk)->next()) {
            benchmark::DoNotOptimize((*walk)->fileSize());
            ++items;
        }
    }
    state.SetItemsProcessed(items);
}

BENCHMARK(enumerateWithSizes)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace keelbright::bench
