#include "KeelbrightCore/platform/system/TaskPools.h"
#include "bench/BenchWindow.h"
#include "bench/Memory.h"
#include "bench/WindowMeasures.h"
#include "tests/support/SandboxFileManager.h"
#include "tests/support/StallProbe.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMap>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <deque>
#include <optional>
#include <utility>

namespace keelbright::bench {

namespace {

using namespace Qt::StringLiterals;

/// The accessible names of the buttons for work that does not start by itself.
QStringList startersOf(Screen screen)
{
    switch (screen) {
    case Screen::storageBrowser:
        return {u"Home"_s, u"Treemap"_s, u"Largest Files"_s};
    case Screen::organizer:
        return {u"Downloads"_s};
    case Screen::scanResults:
        return {u"Start Full Scan"_s};
    default:
        return {};
    }
}

/// Runs one step after another, each after all work of the step before has ended.
class Walkthrough : public QObject
{
public:
    using Step = std::function<bool()>;

    /// A step that gives false ends the program with exit code 1.
    explicit Walkthrough(std::deque<Step> steps)
        : m_steps(std::move(steps))
    {
        m_timer.setInterval(interval);
        connect(&m_timer, &QTimer::timeout, this, &Walkthrough::check);
        m_timer.start();
    }

private:
    static constexpr int interval = 50;
    /// How often in a row no work must be found: a result can start more work, and animations have to end.
    static constexpr int neededQuietChecks = 10;

    void check()
    {
        m_quietChecks = TaskPools::isAtWork() ? 0 : m_quietChecks + 1;
        if (m_quietChecks < neededQuietChecks)
            return;
        m_quietChecks = 0;
        const Step step = std::move(m_steps.front());
        m_steps.pop_front();
        const bool isDone = step();
        if (!isDone || m_steps.empty()) {
            m_timer.stop();
            if (!isDone)
                QCoreApplication::exit(1);
        }
    }

    std::deque<Step> m_steps;
    QTimer m_timer;
    int m_quietChecks = 0;
};

bool press(const QWidget& window, const QString& name)
{
    for (auto* button : window.findChildren<QAbstractButton*>()) {
        if (button->accessibleName() == name && button->isVisible() && button->isEnabled()) {
            button->click();
            return true;
        }
    }
    std::fprintf(stderr, "no button \"%s\"\n", qPrintable(name));
    return false;
}

/// The longest stall of each screen, by its name.
class Stalls
{
public:
    void begin(const QString& what)
    {
        end();
        m_what = what;
        m_probe.emplace();
    }

    void end()
    {
        if (m_probe) {
            m_longest[m_what] = std::max(m_longest[m_what], m_probe->longestSeconds());
            m_longestWork[m_what] = std::max(m_longestWork[m_what], m_probe->longestWorkSeconds());
        }
        m_probe.reset();
    }

    void print()
    {
        end();
        for (auto stall = m_longest.cbegin(); stall != m_longest.cend(); ++stall)
            std::printf("stall:%s %.6f\n", qPrintable(stall.key()), *stall);
        for (auto work = m_longestWork.cbegin(); work != m_longestWork.cend(); ++work)
            std::printf("work:%s %.6f\n", qPrintable(work.key()), *work);
    }

private:
    QString m_what;
    std::optional<testing::StallProbe> m_probe;
    QMap<QString, double> m_longest;
    QMap<QString, double> m_longestWork;
};

/// Opens the screen, then starts what can be started there.
void addVisit(std::deque<Walkthrough::Step>& steps, BenchWindow& window, Stalls& stalls, Screen screen)
{
    steps.emplace_back([&window, &stalls, screen] {
        stalls.begin(rawValue(screen));
        window.state().setSelectedScreen(screen);
        return true;
    });
    for (const QString& name : startersOf(screen)) {
        steps.emplace_back([&window, &stalls, screen, name] {
            stalls.begin(rawValue(screen) + u": "_s + name);
            return press(window.window(), name);
        });
    }
}

} // namespace

int measureVisits(const FileURL& machine)
{
    testing::SandboxFileManager fileManager(machine);
    const FileManagerGuard guard(fileManager);
    BenchWindow window(Screen::dashboard);
    Stalls stalls;
    std::deque<Walkthrough::Step> steps;
    for (int round = 1; round <= 2; ++round) {
        for (const Screen screen : allScreens())
            addVisit(steps, window, stalls, screen);
        steps.emplace_back([&window, &stalls] {
            stalls.begin(rawValue(Screen::dashboard));
            window.state().setSelectedScreen(Screen::dashboard);
            return true;
        });
        steps.emplace_back([&stalls, round] {
            stalls.end();
            std::printf("resident%d %lld\n", round, static_cast<long long>(residentMemory()));
            return true;
        });
    }
    steps.emplace_back([&stalls] {
        stalls.print();
        QCoreApplication::quit();
        return true;
    });
    const Walkthrough walkthrough(std::move(steps));
    return QApplication::exec();
}

int rest(const FileURL& machine, Screen screen)
{
    testing::SandboxFileManager fileManager(machine);
    const FileManagerGuard guard(fileManager);
    BenchWindow window(Screen::dashboard);
    Stalls stalls;
    std::deque<Walkthrough::Step> steps;
    addVisit(steps, window, stalls, screen);
    steps.emplace_back([&stalls] {
        stalls.end();
        std::puts("at rest");
        std::fflush(stdout);
        return true;
    });
    const Walkthrough walkthrough(std::move(steps));
    return QApplication::exec();
}

} // namespace keelbright::bench
