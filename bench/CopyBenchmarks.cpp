#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/system/Cancellation.h"
#include "tests/support/TestMac.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

namespace keelbright::bench {
namespace {

enum class Target { absent, present };

/// Prepares and publishes one file again and again.
void copyFile(benchmark::State& state, qsizetype size, Target target)
{
    testing::TestMac mac;
    mac.writeFile("source/file", QByteArray(size, 'x'));
    const FileURL drive = mac.makeFolder("drive");
    auto mirror = mac.fileManager().openCopyDestination(drive, "Latest");
    auto items = DirectoryEnumerator::open(mac.root().appending(QStringLiteral("source")), {});
    if (!mirror || !items || !(*items)->next() || !(*mirror)->enterFolder("").has_value()) {
        state.SkipWithError("nothing to copy");
        return;
    }
    const QByteArray copy = drive.appendingNative("Latest/file").nativePath();
    const Cancellation cancellation;
    const auto plan = (*mirror)->plan(**items);
    if (!plan) {
        state.SkipWithError("the copy can't be planned");
        return;
    }
    const auto worker = (*mirror)->makeWorker();
    for (auto _ : state) {
        auto prepared = worker->prepare(*plan, cancellation);
        if (!prepared || !(*prepared)->publish().has_value()) {
            state.SkipWithError("the copy failed");
            return;
        }
        if (target == Target::absent) {
            state.PauseTiming();
            ::unlink(copy.constData());
            state.ResumeTiming();
        }
    }
    state.SetBytesProcessed(state.iterations() * size);
}

void copySmallFile(benchmark::State& state)
{
    copyFile(state, 2'000, Target::absent);
}

void replaceSmallFile(benchmark::State& state)
{
    copyFile(state, 2'000, Target::present);
}

void copyLargeFile(benchmark::State& state)
{
    copyFile(state, qsizetype{256} * 1024 * 1024, Target::present);
}

BENCHMARK(copySmallFile)->UseRealTime();
BENCHMARK(replaceSmallFile)->UseRealTime();
BENCHMARK(copyLargeFile)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace keelbright::bench
