#include <QCoreApplication>
#include <benchmark/benchmark.h>

int main(int argc, char* argv[])
{
    // For all benchmarks, as in the program: once it is gone, Qt has no threads to wait for a future with.
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
