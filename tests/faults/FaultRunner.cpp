// One whole backup in a process of its own, for the tests that kill it or fail its system calls:
//     fault-runner <machine> <drive> <source>...
// `machine` is the folder of a made-up machine. Saves config.json at the end, as the program
// does, and prints the outcome as one line of JSON.

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/SandboxFileManager.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimer>
#include <sys/uio.h>
#include <unistd.h>

namespace keelbright {
namespace {

BackupJob jobFrom(const QStringList& arguments)
{
    BackupJob job{.id = QUuid::createUuid(),
                  .sources = {},
                  .destination = {QUuid::createUuid(), FileURL::fromPath(arguments.at(2))},
                  .startedAt = QDateTime::currentDateTimeUtc()};
    for (const QString& path : arguments.sliced(3))
        job.sources.append({QUuid::createUuid(), FileURL::fromPath(path), true});
    return job;
}

void saveConfiguration(const BackupEngine& engine)
{
    AppConfiguration configuration;
    configuration.lastReport = engine.lastReport();
    BackupConfigStore::shared().save(configuration);
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
    if (QCoreApplication::arguments().size() < 4)
        return 2;
    testing::SandboxFileManager files(FileURL::fromPath(QCoreApplication::arguments().at(1)));
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
    engine.startBackup(jobFrom(QCoreApplication::arguments()));
    QCoreApplication::exec();
    saveConfiguration(engine);
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
