// Does a whole backup as the program does it, including the state that keeps the report and writes the
// log, and measures it:
//     load-runner <machine> <drive> <source>
// Prints one line of JSON: the counters; the numbers of error lines in the engine, in the state and in
// a restarted state; the seconds of the run; the longest stalls of the main thread (in the run, at its
// end, in a start with the report, in a change of the settings afterwards); the processor time of the
// main thread in the last three of these; and the peak memory of the process.

#include "Keelbright/state/AppState.h"
#include "KeelbrightCore/platform/system/UserDefaults.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/SandboxFileManager.h"
#include "tests/support/StallProbe.h"
#include "tests/support/WorkTimer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <cstdio>

namespace keelbright {
namespace {

using namespace Qt::StringLiterals;

/// The peak memory of the process. Read here, because the value that the system gives a parent for its
/// children includes the parent itself.
qint64 peakMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    const QByteArray key = "VmHWM:";
    const qsizetype place = text.indexOf(key) + key.size();
    return text.mid(place, text.indexOf("kB", place) - place).trimmed().toLongLong() * 1024;
}

class Load
{
public:
    explicit Load(const FileURL& machine)
        : m_files(machine)
        , m_guard(m_files)
    {}

    int run(const FileURL& drive, const FileURL& source)
    {
        AppState state(services());
        for (qsizetype index = 0; index < state.recommendedFolders().size(); ++index)
            state.setRecommendedFolderEnabled(index, false);
        state.setCustomSources({{QUuid::createUuid(), source, true}});
        state.setSelectedDestination(BackupDestination{QUuid::createUuid(), drive});
        backUp(state);
        addCounters(state.engine());
        m_result.insert(u"linesKept"_s, state.lastReport() ? state.lastReport()->errors.size() : 0);
        // Measured before the restart, as the program never holds the lists of two states.
        m_result.insert(u"peakMemory"_s, peakMemory());
        restart();
        const QByteArray line = QJsonDocument(m_result).toJson(QJsonDocument::Compact);
        std::printf("%s\n", line.constData());
        return 0;
    }

private:
    [[nodiscard]] AppServices services()
    {
        return {m_configStore, m_activityStore, m_userDefaults, m_chooser, &QDateTime::currentDateTimeUtc};
    }

    void backUp(AppState& state)
    {
        std::optional<testing::StallProbe> inRun(std::in_place);
        std::optional<testing::StallProbe> atEnd;
        QElapsedTimer time;
        time.start();
        QObject::connect(&state.engine(), &BackupEngine::isRunningChanged, &state, [&] {
            if (state.engine().isRunning())
                return;
            m_result.insert(u"seconds"_s, static_cast<double>(time.nsecsElapsed()) / 1e9);
            m_result.insert(u"stallInRun"_s, inRun->longestSeconds());
            inRun.reset();
            atEnd.emplace();
            constexpr int afterTheSave = 50;
            QTimer::singleShot(afterTheSave, &QCoreApplication::quit);
        });
        if (!state.confirmBackup())
            return;
        QCoreApplication::exec();
        m_result.insert(u"stallAtEnd"_s, atEnd ? atEnd->longestSeconds() : 0);
        m_result.insert(u"workAtEnd"_s, atEnd ? atEnd->longestWorkSeconds() : 0);
    }

    void addCounters(const BackupEngine& engine)
    {
        m_result.insert(u"copied"_s, engine.progress().filesCopied);
        m_result.insert(u"skipped"_s, engine.progress().filesSkipped);
        m_result.insert(u"estimate"_s, engine.progress().totalFilesEstimate);
        m_result.insert(u"lines"_s, engine.progress().errors.size());
        m_result.insert(u"lastError"_s, engine.lastError().value_or(QString()));
    }

    /// Measures the program's next start and a change of the settings after it.
    void restart()
    {
        std::optional<AppState> state;
        measure(u"start"_s, u"workOfStart"_s, [&] { state.emplace(services()); });
        m_result.insert(u"linesRead"_s, state->lastReport() ? state->lastReport()->errors.size() : 0);
        measure(u"change"_s, u"workOfChange"_s, [&] { state->setRecommendedFolderEnabled(0, true); });
    }

    template <typename Action> void measure(const QString& key, const QString& workKey, Action&& action)
    {
        const testing::UndisturbedTimer time;
        const testing::WorkTimer work;
        action();
        m_result.insert(workKey, static_cast<double>(work.nanoseconds()) / 1e9);
        m_result.insert(key, time.seconds());
    }

    testing::SandboxFileManager m_files;
    FileManagerGuard m_guard;
    BackupConfigStore m_configStore{m_files.applicationSupportDirectory()};
    ActivityStore m_activityStore{m_files.applicationSupportDirectory()};
    UserDefaults m_userDefaults{std::make_unique<QSettings>(
        m_files.homeDirectory().appending(u".config/defaults.ini"_s).path(), QSettings::IniFormat)};
    testing::FakeFolderChooser m_chooser;
    QJsonObject m_result;
};

int run(int argumentCount, char** arguments)
{
    QCoreApplication application(argumentCount, arguments);
    const QStringList folders = QCoreApplication::arguments().sliced(1);
    if (folders.size() != 3)
        return 2;
    return Load(FileURL::fromPath(folders.at(0)))
        .run(FileURL::fromPath(folders.at(1)), FileURL::fromPath(folders.at(2)));
}

} // namespace
} // namespace keelbright

int main(int argumentCount, char** arguments)
{
    return keelbright::run(argumentCount, arguments);
}
