// One whole backup in a process of its own, for the tests that kill it or fail its system calls:
//     fault-runner [--hold=run|--hold=records] <machine> <drive> <source>...
// `machine` is the folder of a made-up machine. Saves config.json and activity.json at the end, as
// the program does, and prints the outcome as one line of JSON.
//
// With --hold it prints, right before the run or before the records, a line with the number of the
// thread that does that part, and goes on when it is given a line. So whoever watches the thread
// sees the system calls of that part and no others.

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/faults/OneWorker.h"
#include "tests/support/SandboxFileManager.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>
#include <cstdio>
#include <sys/prctl.h>
#include <sys/uio.h>
#include <unistd.h>

namespace keelbright {
namespace {

BackupJob jobFrom(const QStringList& folders)
{
    BackupJob job{.id = QUuid::createUuid(),
                  .sources = {},
                  .destination = {QUuid::createUuid(), FileURL::fromPath(folders.at(1))},
                  .startedAt = QDateTime::currentDateTimeUtc()};
    for (const QString& path : folders.sliced(2))
        job.sources.append({QUuid::createUuid(), FileURL::fromPath(path), true});
    return job;
}

/// Lets a watcher come before `thread` goes on.
void hold(pid_t thread)
{
    // A plain user's system lets only parents watch a process, unless it allows others.
    ::prctl(PR_SET_PTRACER, PR_SET_PTRACER_ANY);
    std::printf("%d\n", static_cast<int>(thread));
    std::fflush(stdout);
    while (std::getchar() != '\n' && std::feof(stdin) == 0) {
    }
}

void saveRecords(const BackupEngine& engine)
{
    AppConfiguration configuration;
    configuration.lastReport = engine.lastReport();
    BackupConfigStore::shared().save(configuration);
    ActivityStore::shared().append({.id = QUuid::createUuid(),
                                    .timestamp = QDateTime::currentDateTimeUtc(),
                                    .kind = ActivityEntry::Kind::backup,
                                    .title = QStringLiteral("Backup"),
                                    .detail = QStringLiteral("A run of the tests"),
                                    .bytesAffected = engine.progress().bytesCopied,
                                    .itemCount = engine.progress().filesCopied});
}

QByteArray outcome(const BackupEngine& engine)
{
    QJsonObject object{{QStringLiteral("copied"), engine.progress().filesCopied},
                       {QStringLiteral("skipped"), engine.progress().filesSkipped},
                       {QStringLiteral("errors"), QJsonArray::fromStringList(engine.progress().errors)},
                       {QStringLiteral("lastError"), engine.lastError().value_or(QString())}};
    if (engine.lastReport())
        object.insert(QStringLiteral("manifestPath"), engine.lastReport()->manifestPath);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

int run(int argumentCount, char** arguments)
{
    QCoreApplication application(argumentCount, arguments);
    QStringList folders = QCoreApplication::arguments().sliced(1);
    const QString held = folders.value(0).startsWith(u"--hold=") ? folders.takeFirst().sliced(7) : QString();
    if (folders.size() < 3)
        return 2;
    testing::SandboxFileManager files(FileURL::fromPath(folders.at(0)));
    const FileManagerGuard guard(files);
    BackupEngine engine;
    // Changes come through an event; when the failing call is the very one that wakes the main
    // thread, the beat lets it find them all the same.
    QTimer beat;
    beat.start(5);
    QObject::connect(&engine, &BackupEngine::isRunningChanged, &application, [&engine] {
        if (!engine.isRunning())
            QCoreApplication::quit();
    });
    if (held == u"run")
        hold(testing::leaveOneWorker());
    engine.startBackup(jobFrom(folders));
    QCoreApplication::exec();
    if (held == u"records")
        hold(::gettid());
    saveRecords(engine);
    // Not by `write`: that may be the call that fails.
    QByteArray line = outcome(engine);
    const iovec vector{line.data(), static_cast<size_t>(line.size())};
    return ::writev(STDOUT_FILENO, &vector, 1) == line.size() ? 0 : 1;
}

} // namespace
} // namespace keelbright

int main(int argumentCount, char** arguments)
{
    return keelbright::run(argumentCount, arguments);
}
