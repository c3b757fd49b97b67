#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/SampleReport.h"
#include "tests/support/TestMac.h"

#include <benchmark/benchmark.h>

namespace keelbright::bench {
namespace {

ActivityEntry entry()
{
    return {.id = QUuid::createUuid(),
            .timestamp = QDateTime::currentDateTimeUtc(),
            .kind = ActivityEntry::Kind::backup,
            .title = QStringLiteral("Backup completed"),
            .detail = QStringLiteral("1204 files · 8.31 GB"),
            .bytesAffected = 8'310'000'000,
            .itemCount = 1204};
}

void appendToAFullLog(benchmark::State& state)
{
    const testing::TestMac mac;
    const ActivityStore store(mac.root());
    for (qsizetype i = 0; i < ActivityStore::maxEntries; ++i)
        store.append(entry());
    for (auto _ : state)
        store.append(entry());
}

BENCHMARK(appendToAFullLog)->Unit(benchmark::kMillisecond)->UseRealTime();

constexpr qint64 manyLines = 100'000;

AppConfiguration configurationWithLines(qint64 count)
{
    AppConfiguration configuration;
    configuration.lastReport = testing::sampleReport();
    for (qint64 i = 0; i < count; ++i) {
        configuration.lastReport->errors.append(
            QStringLiteral("Skip pipe %1: “pipe %1” could not be copied: it is not a file.").arg(i));
    }
    return configuration;
}

/// The work of the main thread after a click on a folder in the protected items.
void saveASettingBesideAReport(benchmark::State& state)
{
    const testing::TestMac mac;
    BackupConfigStore store(mac.root());
    AppConfiguration configuration = configurationWithLines(state.range(0));
    store.save(configuration);
    for (auto _ : state) {
        configuration.enabledRecommendedFolders = {QUuid::createUuid().toString()};
        store.save(configuration);
    }
}

BENCHMARK(saveASettingBesideAReport)
    ->Arg(0)
    ->Arg(manyLines)
    ->ArgName("lines")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// The work of the main thread after a backup.
void saveANewReport(benchmark::State& state)
{
    const testing::TestMac mac;
    BackupConfigStore store(mac.root());
    AppConfiguration configuration = configurationWithLines(manyLines);
    for (auto _ : state) {
        configuration.lastReport->id = QUuid::createUuid();
        store.save(configuration);
    }
}

BENCHMARK(saveANewReport)->Unit(benchmark::kMillisecond)->UseRealTime();

void loadAReport(benchmark::State& state)
{
    const testing::TestMac mac;
    BackupConfigStore store(mac.root());
    store.save(configurationWithLines(manyLines));
    for (auto _ : state)
        benchmark::DoNotOptimize(store.load());
}

BENCHMARK(loadAReport)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace keelbright::bench
