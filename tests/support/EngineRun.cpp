#include "tests/support/EngineRun.h"

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <algorithm>
#include <gtest/gtest.h>

namespace keelbright::testing {

namespace {

std::unique_ptr<QCoreApplication> applicationIfNone()
{
    static int argumentCount = 1;
    static char name[] = "tests";
    static char* arguments[] = {name, nullptr};
    return QCoreApplication::instance() ? nullptr
                                        : std::make_unique<QCoreApplication>(argumentCount, arguments);
}

} // namespace

EngineRun::EngineRun()
    : m_application(applicationIfNone())
    , drive(mac.makeFolder("Volumes/Drive"))
{
    mac.writeFile("etc/machine-info", "PRETTY_HOSTNAME=\"mira's Mac!\"\n");
}

EngineRun::~EngineRun() = default;

BackupJob EngineRun::job(const QList<FileURL>& folders) const
{
    BackupJob job{.id = QUuid::createUuid(),
                  .sources = {},
                  .destination = {QUuid::createUuid(), drive},
                  .startedAt = mac.clock()().addSecs(-120)};
    for (const FileURL& folder : folders)
        job.sources.append({QUuid::createUuid(), folder, true});
    return job;
}

void EngineRun::run(const BackupJob& job)
{
    engine.startBackup(job);
    turnUntil([this] { return !engine.isRunning(); });
}

void EngineRun::turnUntil(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    constexpr qint64 oneMinute = 60'000;
    while (!condition()) {
        if (timer.elapsed() > oneMinute) {
            ADD_FAILURE() << "what was waited for did not come";
            return;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    }
    QCoreApplication::processEvents();
}

FileURL EngineRun::latest(const QByteArray& path) const
{
    return drive.appendingNative("Keelbright/miras Mac/Latest/" + path);
}

FileURL EngineRun::mirrored(const QByteArray& path) const
{
    return latest("Personal Files/" + path);
}

FileURL EngineRun::reports() const
{
    return drive.appendingNative("Keelbright/miras Mac/Reports");
}

QByteArrayList EngineRun::everythingBelow(const FileURL& folder)
{
    QByteArrayList paths;
    const auto items = DirectoryEnumerator::open(folder, {});
    if (!items) {
        ADD_FAILURE() << items.error().localizedDescription().toStdString();
        return paths;
    }
    while ((*items)->next()) {
        QByteArray path = (*items)->relativeFolder().toByteArray();
        if (!path.isEmpty())
            path += '/';
        paths.append(path + (*items)->name().toByteArray());
    }
    std::ranges::sort(paths);
    return paths;
}

} // namespace keelbright::testing
