#include "bench/BenchWindow.h"
#include "bench/Memory.h"
#include "bench/Stopwatch.h"
#include "bench/WindowMeasures.h"
#include "tests/support/StallProbe.h"

#include <QApplication>
#include <QTimer>

#include <memory>

namespace keelbright::bench {

int measureBackup(const FileURL& tree, const FileURL& drive)
{
    BenchWindow window(Screen::backupProgress);
    BackupEngine& engine = window.state().engine();
    const BackupJob job{.id = QUuid::createUuid(),
                        .sources = {{QUuid::createUuid(), tree, true}},
                        .destination = {QUuid::createUuid(), drive},
                        .startedAt = QDateTime::currentDateTimeUtc()};
    int code = 1;
    constexpr int settling = 200;
    QTimer::singleShot(settling, qApp, [&] {
        const auto probe = std::make_shared<testing::StallProbe>();
        const auto stopwatch = std::make_shared<Stopwatch>();
        QObject::connect(&engine, &BackupEngine::isRunningChanged, qApp, [&, probe, stopwatch] {
            if (engine.isRunning())
                return;
            stopwatch->print();
            const BackupProgress& progress = engine.progress();
            std::printf("stall %.6f\nwork %.6f\nfiles %lld\nerrors %lld\npeak %ld\n", probe->longestSeconds(),
                        probe->longestWorkSeconds(), static_cast<long long>(progress.filesCopied),
                        static_cast<long long>(progress.errors.size()), peakMemory());
            code = engine.lastError() ? 1 : 0;
            QCoreApplication::quit();
        });
        engine.startBackup(job);
    });
    QApplication::exec();
    return code;
}

} // namespace keelbright::bench
