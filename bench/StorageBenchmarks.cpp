#include "KeelbrightCore/storage/FolderSizeService.h"
#include "KeelbrightCore/storage/LargestFilesScanner.h"
#include "KeelbrightCore/storage/OrganizerService.h"
#include "bench/BenchTree.h"
#include "bench/TreemapNodes.h"

#include <benchmark/benchmark.h>

namespace keelbright::bench {
namespace {

void recursiveSize(benchmark::State& state)
{
    testing::TestMac mac;
    const FileURL root = makeTree(mac, "tree", fileCount());
    for (auto _ : state)
        benchmark::DoNotOptimize(FolderSizeService::recursiveSize(root, mac.fileManager()));
    state.SetItemsProcessed(state.iterations() * fileCount());
}

BENCHMARK(recursiveSize)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A level of many folders of the same size.
void scanLevel(benchmark::State& state)
{
    const testing::TestMac mac;
    const FileURL root = makeTree(mac, "tree", fileCount());
    for (auto _ : state)
        benchmark::DoNotOptimize(FolderSizeService::scanLevel(root));
    state.SetItemsProcessed(state.iterations() * fileCount());
}

BENCHMARK(scanLevel)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A level with a single folder that holds all files.
void scanLevelOfOneFolder(benchmark::State& state)
{
    const testing::TestMac mac;
    makeTree(mac, "level/tree", fileCount());
    const FileURL level = mac.root().appending(QStringLiteral("level"));
    for (auto _ : state)
        benchmark::DoNotOptimize(FolderSizeService::scanLevel(level));
    state.SetItemsProcessed(state.iterations() * fileCount());
}

BENCHMARK(scanLevelOfOneFolder)->Unit(benchmark::kMillisecond)->UseRealTime();

/// A level of a few small folders, for which threads must not cost more than they save.
void scanLevelOfSmallFolders(benchmark::State& state)
{
    const testing::TestMac mac;
    const FileURL root = makeTree(mac, "tree", 500);
    for (auto _ : state)
        benchmark::DoNotOptimize(FolderSizeService::scanLevel(root));
}

BENCHMARK(scanLevelOfSmallFolders)->Unit(benchmark::kMicrosecond)->UseRealTime();

void largestFiles(benchmark::State& state)
{
    const testing::TestMac mac;
    const FileURL root = makeTree(mac, "tree", fileCount());
    for (auto _ : state)
        benchmark::DoNotOptimize(LargestFilesScanner::scan(root, 50));
    state.SetItemsProcessed(state.iterations() * fileCount());
}

BENCHMARK(largestFiles)->Unit(benchmark::kMillisecond)->UseRealTime();

void treemap(benchmark::State& state)
{
    const TreemapLayout layout = treemapOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(layout.layout());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(treemap)->Arg(100)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMicrosecond);

void organizerPlan(benchmark::State& state)
{
    const testing::TestMac mac;
    const QByteArrayList endings{".jpg", ".PDF", ".mov", ".mp3", ".zip", ".swift", ".dmg", ".xyz", ""};
    for (int i = 0; i < fileCount(); ++i)
        mac.writeFile("loose/file " + QByteArray::number(i) + endings[i % endings.size()], "x");
    const FileURL folder = mac.root().appending(QStringLiteral("loose"));
    for (auto _ : state)
        benchmark::DoNotOptimize(OrganizerService::propose(folder));
    state.SetItemsProcessed(state.iterations() * fileCount());
}

BENCHMARK(organizerPlan)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace keelbright::bench
