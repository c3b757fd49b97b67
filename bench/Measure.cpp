// keelbright-measure scan TREE | size TREE | junk HOME | level FOLDER | walk TREE |
//                    largest TREE | treemap CELLS | plan FOLDER | apps |
//                    backup TREE DRIVE | start SINCE
//
// Does one thing with the real services, the backup with the real window watching (on the
// platform that QT_QPA_PLATFORM names), and prints the seconds that it took. "start" opens the
// program in the home that HOME names until its window is painted; SINCE is the moment at which
// the process was started, in nanoseconds of the monotonic clock.

#include "Keelbright/screens/Application.h"
#include "Keelbright/screens/MainWindow.h"
#include "Keelbright/state/FileChooser.h"
#include "Keelbright/state/KeelbrightApp.h"
#include "Keelbright/state/Workspace.h"
#include "Keelbright/widgets/AlertPresenter.h"
#include "Keelbright/widgets/Theme.h"
#include "KeelbrightCore/apps/AppScanner.h"
#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/health/HealthScoreService.h"
#include "bench/Stopwatch.h"
#include "bench/StorageMeasures.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/MadeUpApplication.h"
#include "tests/support/StallProbe.h"
#include "tests/support/TestMac.h"

#include <QApplication>
#include <QFile>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <memory>
#include <optional>

namespace keelbright::bench {
namespace {

/// A chooser that is never asked.
class NoFileChooser : public FileChooser
{
public:
    void chooseFile(const FileOpenRequest&, std::function<void(const FileURL&)>) override {}

    void chooseSaveLocation(const FileSaveRequest&, std::function<void(const FileURL&)>) override {}
};

/// A desktop that nothing is opened on.
class NoWorkspace : public Workspace
{
public:
    void open(const FileURL&) override {}

    void reveal(const FileURL&) override {}
};

int measureScan(const FileURL& tree)
{
    const QList<BackupSource> sources = {{QUuid::createUuid(), tree, true}};
    return measureWarm("files", [&] { return FileScanner::scan(sources).fileCount; });
}

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

int measureJunk(const FileURL& home)
{
    HomeAt fileManager(home);
    const FileManagerGuard guard(fileManager);
    return measureWarm("bytes",
                       [] { return HealthScoreService::compute(std::nullopt).result().junkEstimateBytes; });
}

/// 300 applications, with a metadata tool that takes 50 ms for each.
int measureApps(const testing::TestMac& mac)
{
    const testing::MadeUpFiles files(mac.root(), QDateTime::currentDateTimeUtc());
    for (int number = 0; number < 300; ++number) {
        const QByteArray name = "App" + QByteArray::number(number);
        addApplication(files, "Applications", {.name = name, .bundleID = "org.example." + name});
    }
    files.folder("usr/bin");
    files.link("usr/bin/mdls",
               QFile::encodeName(QCoreApplication::applicationDirPath()) + "/keelbright-slow-tool");
    const Stopwatch stopwatch;
    const QList<AppInfo> apps = AppScanner::scan().result();
    stopwatch.print();
    const auto known = std::ranges::count(apps, 42, &AppInfo::useCount);
    std::printf("applications %lld\n", static_cast<long long>(known));
    return known == 300 ? 0 : 1;
}

int measureBackup(QApplication& application, const FileURL& tree, const FileURL& drive)
{
    Theme::instance().install();
    testing::FakeFolderChooser chooser;
    NoWorkspace workspace;
    NoFileChooser files;
    DialogAlertPresenter alerts;
    KeelbrightApp app(chooser);
    AppState& state = app.state();
    MainWindow window({state, alerts, workspace, files});
    state.setIsOnboardingCompleted(true);
    state.setSelectedScreen(Screen::backupProgress);
    window.show();

    const BackupJob job{.id = QUuid::createUuid(),
                        .sources = {{QUuid::createUuid(), tree, true}},
                        .destination = {QUuid::createUuid(), drive},
                        .startedAt = QDateTime::currentDateTimeUtc()};
    int code = 1;
    QTimer::singleShot(200, &application, [&] {
        const auto probe = std::make_shared<testing::StallProbe>();
        const auto stopwatch = std::make_shared<Stopwatch>();
        QObject::connect(&state.engine(), &BackupEngine::isRunningChanged, [&, probe, stopwatch] {
            if (state.engine().isRunning())
                return;
            stopwatch->print();
            std::printf("stall %.6f\n", probe->longestSeconds());
            const BackupProgress& progress = state.engine().progress();
            std::printf("files %lld\nerrors %lld\n", static_cast<long long>(progress.filesCopied),
                        static_cast<long long>(progress.errors.size()));
            code = state.engine().lastError() ? 1 : 0;
            application.quit();
        });
        state.engine().startBackup(job);
    });
    QApplication::exec();
    return code;
}

/// Waits for the first window to be painted, tells when that was, and ends the program.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(qint64 since, QObject* parent)
        : QObject(parent)
        , m_since(since)
    {}

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_hasPainted) {
            m_hasPainted = true;
            // The whole window is painted in the same turn.
            QTimer::singleShot(0, this, [this] {
                tell();
                QCoreApplication::quit();
            });
        }
        return false;
    }

private:
    void tell() const
    {
        timespec now = {};
        ::clock_gettime(CLOCK_MONOTONIC, &now);
        const qint64 nanoseconds = now.tv_sec * 1'000'000'000LL + now.tv_nsec - m_since;
        std::printf("wall %.6f\ncpu 0\n", static_cast<double>(nanoseconds) / 1e9);
        QFile memory(QStringLiteral("/proc/self/smaps_rollup"));
        if (!memory.open(QIODevice::ReadOnly))
            return;
        for (const QByteArray& line : memory.readAll().split('\n')) {
            if (line.startsWith("Rss:"))
                std::printf("resident %s\n", line.mid(4).trimmed().split(' ').first().constData());
        }
    }

    qint64 m_since;
    bool m_hasPainted = false;
};

std::optional<qint64> startedAt;

void watchFirstPaint()
{
    if (startedAt)
        qApp->installEventFilter(new FirstPaint(*startedAt, qApp));
}
Q_COREAPP_STARTUP_FUNCTION(watchFirstPaint)

} // namespace
} // namespace keelbright::bench

int main(int argc, char** argv)
{
    using namespace keelbright;
    if (argc == 3 && QByteArrayView(argv[1]) == "start") {
        bench::startedAt = QByteArray(argv[2]).toLongLong();
        return runApplication(argc, argv);
    }
    QApplication application(argc, argv);
    const testing::TestMac mac;
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3) {
        if (arguments[1] == QStringLiteral("scan"))
            return bench::measureScan(FileURL::fromPath(arguments[2]));
        if (arguments[1] == QStringLiteral("junk"))
            return bench::measureJunk(FileURL::fromPath(arguments[2]));
        if (const auto code = bench::measureStorage(arguments[1], arguments[2]))
            return *code;
    }
    if (arguments.size() == 4 && arguments[1] == QStringLiteral("backup")) {
        return bench::measureBackup(application, FileURL::fromPath(arguments[2]),
                                    FileURL::fromPath(arguments[3]));
    }
    if (arguments.size() == 2 && arguments[1] == QStringLiteral("apps"))
        return bench::measureApps(mac);
    std::fputs("usage: keelbright-measure scan TREE | size TREE | junk HOME | level FOLDER | walk TREE |\n"
               "                          largest TREE | treemap CELLS | plan FOLDER | apps |\n"
               "                          backup TREE DRIVE | start SINCE\n",
               stderr);
    return 2;
}
