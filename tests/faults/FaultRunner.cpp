// Does one piece of the program's work in a separate process, for the tests that kill it or fail its
// system calls:
//     fault-runner [--hold=run|--hold=workers|--hold=records] <machine> <drive> <source>...
//     fault-runner [--hold=work] --work=clean <machine>
//     fault-runner [--hold=work] --work=remove <machine> <bundle>
//     fault-runner [--hold=work] --work=organize <machine> <folder>
//     fault-runner [--hold=work] --work=undo-remove <machine> <bundle>
//     fault-runner [--hold=work] --work=undo-organize <machine> <folder>
//     fault-runner [--hold=work] --work=start <machine>
// `machine` is the folder of a made-up machine. A backup saves config.json and activity.json at its
// end, as the program does. Prints the outcome as one line of JSON.
//
// With --hold it stops right before the run, before the records or before the work: it prints
// the id of the thread that does that part, and continues when it reads a line. A watcher of that
// thread then gets the system calls of that part only. With --hold=workers the run has three threads, of
// which two can prepare copies, and it prints the ids of all.

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/platform/system/FileSizeLimit.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/faults/CareWork.h"
#include "tests/faults/FreeThreads.h"
#include "tests/faults/Holding.h"
#include "tests/faults/StartWork.h"
#include "tests/support/SandboxFileManager.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QTimer>
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

QJsonObject outcome(const BackupEngine& engine)
{
    QJsonObject object{{QStringLiteral("copied"), engine.progress().filesCopied},
                       {QStringLiteral("skipped"), engine.progress().filesSkipped},
                       {QStringLiteral("errors"), QJsonArray::fromStringList(engine.progress().errors)},
                       {QStringLiteral("lastError"), engine.lastError().value_or(QString())}};
    if (engine.lastReport())
        object.insert(QStringLiteral("manifestPath"), engine.lastReport()->manifestPath);
    return object;
}

/// Removes a leading option `--name=` and gives its value; empty if there is none.
QString takeOption(QStringList& arguments, const QString& name)
{
    const QString start = QStringLiteral("--%1=").arg(name);
    return arguments.value(0).startsWith(start) ? arguments.takeFirst().sliced(start.size()) : QString();
}

int backUp(const QStringList& folders, const QString& held)
{
    BackupEngine engine;
    // An event announces the changes of a run. If the failed call is the one that wakes the main thread
    // for it, the timer wakes it instead.
    QTimer beat;
    beat.start(5);
    QObject::connect(&engine, &BackupEngine::isRunningChanged, &engine, [&engine] {
        if (!engine.isRunning())
            QCoreApplication::quit();
    });
    if (held == u"run")
        testing::hold(testing::leaveThreads(1));
    if (held == u"workers")
        testing::hold(testing::leaveThreads(3));
    engine.startBackup(jobFrom(folders));
    QCoreApplication::exec();
    if (held == u"records")
        testing::hold({::gettid()});
    saveRecords(engine);
    return testing::printOutcome(outcome(engine));
}

int doWork(const QString& work, const QStringList& folders, const QString& held)
{
    const auto ready = [&held] {
        if (held == u"work")
            testing::hold({::gettid()});
    };
    if (work == u"start")
        return testing::printOutcome(testing::startProgram(ready));
    const FileURL place = FileURL::fromPath(folders.value(1));
    if (work == u"clean")
        return testing::printOutcome(testing::clean(ready));
    if (work == u"remove")
        return testing::printOutcome(testing::removeApplication(place, ready));
    if (work == u"undo-remove")
        return testing::printOutcome(testing::undoRemoval(place, ready));
    if (work == u"undo-organize")
        return testing::printOutcome(testing::undoOrganizing(place, ready));
    return testing::printOutcome(testing::organize(place, ready));
}

qsizetype minimumFolders(const QString& work)
{
    if (work.isEmpty())
        return 3;
    return work == u"clean" || work == u"start" ? 1 : 2;
}

int run(int argumentCount, char** arguments)
{
    reportFileSizeLimitAsError();
    const QCoreApplication application(argumentCount, arguments);
    QStringList folders = QCoreApplication::arguments().sliced(1);
    const QString held = takeOption(folders, QStringLiteral("hold"));
    const QString work = takeOption(folders, QStringLiteral("work"));
    if (folders.size() < minimumFolders(work))
        return 2;
    testing::SandboxFileManager files(FileURL::fromPath(folders.at(0)));
    const FileManagerGuard guard(files);
    return work.isEmpty() ? backUp(folders, held) : doWork(work, folders, held);
}

} // namespace
} // namespace keelbright

int main(int argumentCount, char** arguments)
{
    return keelbright::run(argumentCount, arguments);
}
