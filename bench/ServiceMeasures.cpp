#include "bench/ServiceMeasures.h"

#include "KeelbrightCore/apps/AppScanner.h"
#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/check/CopyCheck.h"
#include "KeelbrightCore/health/HealthScoreService.h"
#include "KeelbrightCore/health/JunkScanner.h"
#include "bench/Memory.h"
#include "tests/support/LinuxEnvironment.h"
#include "tests/support/SandboxFileManager.h"

#include <algorithm>
#include <cstdio>

namespace keelbright::bench {

namespace {

/// The real file system with another home.
class HomeAt : public SystemFileManager
{
public:
    explicit HomeAt(FileURL home)
        : m_home(std::move(home))
    {}

    [[nodiscard]] FileURL homeDirectory() const override { return m_home; }

private:
    FileURL m_home;
};

} // namespace

int measureScan(const FileURL& tree, Caches caches)
{
    const QList<BackupSource> sources = {{QUuid::createUuid(), tree, true}};
    return measureWork(caches, "files", [&] { return FileScanner::scan(sources).fileCount; });
}

int measureJunk(const FileURL& home, Caches caches)
{
    HomeAt fileManager(home);
    const FileManagerGuard guard(fileManager);
    return measureWork(caches, "bytes",
                       [] { return HealthScoreService::compute(std::nullopt).result().junkEstimateBytes; });
}

int measureLinuxJunk(const FileURL& machine, Caches caches)
{
    testing::SandboxFileManager fileManager(machine);
    fileManager.setIsMac(false);
    const FileManagerGuard guard(fileManager);
    const testing::LinuxEnvironment environment;
    environment.begin(fileManager.homeDirectory());
    return measureWork(caches, "bytes", [] {
        qint64 bytes = 0;
        for (const JunkCategory& category : JunkScanner::scan().result())
            bytes += category.totalBytes();
        return bytes;
    });
}

int measureCheck(const FileURL& tree, const FileURL& drive)
{
    const CheckJob job{
        .sources = {{QUuid::createUuid(), tree, true}}, .destination = drive, .checksumList = {}};
    CheckProgress progress;
    const Stopwatch stopwatch;
    const CheckReport report = CopyCheck::run(job, progress);
    stopwatch.print();
    std::printf("same %lld\nfaults %lld\npeak %ld\n", static_cast<long long>(report.count(CopyVerdict::same)),
                static_cast<long long>(report.faults()), peakMemory());
    return report.end == CheckReport::End::complete ? 0 : 1;
}

int measureApps(const FileURL& machine, int count)
{
    testing::SandboxFileManager fileManager(machine);
    const FileManagerGuard guard(fileManager);
    const Stopwatch stopwatch;
    const QList<AppInfo> apps = AppScanner::scan().result();
    stopwatch.print();
    // The use count that SlowTool.cpp prints.
    const auto known = std::ranges::count(apps, 42, &AppInfo::useCount);
    std::printf("applications %lld\n", static_cast<long long>(known));
    return known == count ? 0 : 1;
}

} // namespace keelbright::bench
