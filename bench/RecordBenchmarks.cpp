#include "KeelbrightCore/records/ActivityStore.h"
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

} // namespace
} // namespace keelbright::bench
