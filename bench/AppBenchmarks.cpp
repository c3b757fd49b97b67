#include "KeelbrightCore/apps/AppScanner.h"
#include "KeelbrightCore/apps/SpotlightMetadata.h"
#include "tests/support/MadeUpApplication.h"
#include "tests/support/TestLinux.h"

#include <benchmark/benchmark.h>

namespace keelbright::bench {
namespace {

void readMetadataOutput(benchmark::State& state)
{
    const QByteArray output = "kMDItemDateAdded    = 2025-01-02 03:04:05 +0000\n"
                              "kMDItemLastUsedDate = 2026-03-01 09:05:00 +0000\n"
                              "kMDItemUseCount     = 42\n";
    for (auto _ : state)
        benchmark::DoNotOptimize(AppScanner::metadataFromOutput(output));
}

void readMegabytesOfMetadataOutput(benchmark::State& state)
{
    const QByteArray output = QByteArray("kMDItemSomething = a value like any other\n").repeated(100'000);
    for (auto _ : state)
        benchmark::DoNotOptimize(AppScanner::metadataFromOutput(output));
}

/// Without a metadata tool, so that only listing, reading property lists and classifying are measured.
void scanPropertyLists(benchmark::State& state)
{
    const testing::TestMac mac;
    const testing::MadeUpFiles files(mac.root(), mac.clock()());
    for (int number = 0; number < 100; ++number) {
        const QByteArray name = "App" + QByteArray::number(number);
        addApplication(
            files, "Applications",
            {.name = name,
             .bundleID = "org.example." + name,
             .form = number % 2 == 0 ? testing::PropertyListForm::xml : testing::PropertyListForm::binary});
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(AppScanner::scan(mac.clock()).result());
}

/// A desktop with as many entries in its menu, each of a package.
void scanDesktopEntries(benchmark::State& state)
{
    const testing::TestLinux machine;
    const testing::MadeUpLinux home = machine.madeUp(testing::MadeUpLinux::Desktop::gnome);
    QByteArrayList entries;
    for (int number = 0; number < state.range(0); ++number) {
        const QByteArray path = "/usr/share/applications/app" + QByteArray::number(number) + ".desktop";
        machine.files().text(path.sliced(1), "[Desktop Entry]\nType=Application\nName=App\nExec=app\n");
        entries.append(path);
    }
    home.addPackage("apps", "1.0", 1, entries, 100);
    for (auto _ : state)
        benchmark::DoNotOptimize(AppScanner::scan(machine.clock()).result());
}

/// A desktop with as many packages, a hundred files in each; every twentieth has an entry in the menu.
void scanPackages(benchmark::State& state)
{
    const testing::TestLinux machine;
    const testing::MadeUpLinux home = machine.madeUp(testing::MadeUpLinux::Desktop::gnome);
    for (int number = 0; number < state.range(0); ++number) {
        const QByteArray name = "package" + QByteArray::number(number);
        QByteArrayList files;
        for (int file = 0; file < 100; ++file)
            files.append("/usr/share/doc/" + name + "/a page of its manual " + QByteArray::number(file));
        if (number % 20 == 0) {
            const QByteArray entry = "/usr/share/applications/" + name + ".desktop";
            machine.files().text(entry.sliced(1), "[Desktop Entry]\nType=Application\nName=App\nExec=app\n");
            files.append(entry);
        }
        home.addPackage(name, "1.0", 1, files, 100);
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(AppScanner::scan(machine.clock()).result());
}

BENCHMARK(scanPackages)->Arg(4'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scanDesktopEntries)->Arg(3'000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(readMetadataOutput)->Unit(benchmark::kMicrosecond);
BENCHMARK(readMegabytesOfMetadataOutput)->Unit(benchmark::kMillisecond);
BENCHMARK(scanPropertyLists)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace keelbright::bench
