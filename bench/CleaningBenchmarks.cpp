#include "Keelbright/screens/JunkCleanerView.h"
#include "Keelbright/screens/OrganizerView.h"
#include "Keelbright/screens/organizer/QuickTargetRow.h"
#include "Keelbright/screens/shared/ScreenContext.h"
#include "Keelbright/state/AppState.h"
#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/rows/RowListView.h"
#include "KeelbrightCore/platform/system/UserDefaults.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "bench/BenchTree.h"
#include "bench/Stall.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/FakeAlertPresenter.h"
#include "tests/support/FakeFileChooser.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/FakeWorkspace.h"

#include <QSettings>
#include <QTest>
#include <benchmark/benchmark.h>

// The junk cleaner and the organizer with the largest number of items, from the scan to the last row.

namespace keelbright::bench {
namespace {

using namespace Qt::StringLiterals;

/// A machine with everything that a screen needs.
struct Machine
{
    ~Machine() { testing::waitForBackgroundWork(); }

    [[nodiscard]] ScreenContext context() { return {state, alerts, workspace, files}; }

    testing::TestMac mac;
    BackupConfigStore configStore{mac.fileManager().applicationSupportDirectory()};
    ActivityStore activityStore{mac.fileManager().applicationSupportDirectory()};
    UserDefaults userDefaults{
        std::make_unique<QSettings>(mac.root().appending(u"defaults.ini"_s).path(), QSettings::IniFormat)};
    testing::FakeFolderChooser chooser;
    testing::FakeAlertPresenter alerts;
    testing::FakeWorkspace workspace;
    testing::FakeFileChooser files;
    AppState state{{configStore, activityStore, userDefaults, chooser, mac.clock()}};
};

RowListView* listOf(const QWidget& view, const QString& name)
{
    for (auto* list : view.findChildren<RowListView*>()) {
        if (list->accessibleName() == name)
            return list;
    }
    qFatal("no list %s", qPrintable(name));
}

/// The last button of this name, which is the one in the bottom bar.
Button* buttonOf(const QWidget& view, const QString& name)
{
    Button* found = nullptr;
    for (auto* button : view.findChildren<Button*>()) {
        if (button->accessibleName() == name)
            found = button;
    }
    if (found == nullptr)
        qFatal("no button %s", qPrintable(name));
    return found;
}

struct JunkMachine : Machine
{
    JunkMachine()
    {
        for (int i = 0; i < fileCount(); ++i)
            mac.writeFile("Users/mira/Library/Caches/com.example.cache" + QByteArray::number(i) + "/data",
                          QByteArray(1 + i % 1000, 'x'));
    }

    std::unique_ptr<JunkCleanerView> open()
    {
        auto view = std::make_unique<JunkCleanerView>(context());
        view->resize(940, 760);
        view->show();
        const auto* model = view->findChild<JunkCleanerVM*>();
        if (!QTest::qWaitFor([=] { return !model->isScanning(); }, 120'000))
            qFatal("the scan did not end");
        return view;
    }
};

struct PlanMachine : Machine
{
    PlanMachine()
    {
        for (int i = 0; i < fileCount(); ++i)
            mac.writeFile("Users/mira/Downloads/photo" + QByteArray::number(i) + ".jpg",
                          QByteArray(1 + i % 1000, 'x'));
    }

    std::unique_ptr<OrganizerView> open()
    {
        auto view = std::make_unique<OrganizerView>(context());
        view->resize(940, 760);
        view->show();
        for (auto* row : view->findChildren<QuickTargetRow*>()) {
            if (row->accessibleName() == "Downloads"_L1)
                row->click();
        }
        const auto* model = view->findChild<OrganizerVM*>();
        if (!QTest::qWaitFor([=] { return !model->isScanning(); }, 120'000))
            qFatal("the scan did not end");
        return view;
    }
};

template <typename Kind> void openScreen(benchmark::State& state)
{
    Kind machine;
    for (auto _ : state) {
        std::unique_ptr<QWidget> view;
        measureStall(state, [&] { view = machine.open(); });
    }
}

template <typename Kind> void pressOfEverything(benchmark::State& state, const QString& name)
{
    Kind machine;
    const auto view = machine.open();
    settle();
    Button* button = buttonOf(*view, name);
    for (auto _ : state)
        measureStall(state, [&] { button->click(); });
}

template <typename Kind> void tickOne(benchmark::State& state, const QString& list)
{
    Kind machine;
    const auto view = machine.open();
    settle();
    if (list == "Junk items"_L1)
        buttonOf(*view, u"Select All"_s)->click();
    settle();
    for (auto _ : state)
        measureStall(state, [&] { Q_EMIT listOf(*view, list)->markPressed(3); });
}

template <typename Kind> void scrollThrough(benchmark::State& state, const QString& name)
{
    Kind machine;
    const auto view = machine.open();
    settle();
    RowListView* list = listOf(*view, name);
    for (auto _ : state) {
        measureStall(state, [&] { scrollToTheEnd(*list); });
    }
}

void junkCleanerOpens(benchmark::State& state)
{
    openScreen<JunkMachine>(state);
}

void junkCleanerTicksAll(benchmark::State& state)
{
    pressOfEverything<JunkMachine>(state, u"Select All"_s);
}

void junkCleanerTicksOne(benchmark::State& state)
{
    tickOne<JunkMachine>(state, u"Junk items"_s);
}

void junkCleanerScrolls(benchmark::State& state)
{
    scrollThrough<JunkMachine>(state, u"Junk items"_s);
}

void organizerOpens(benchmark::State& state)
{
    openScreen<PlanMachine>(state);
}

void organizerTicksAll(benchmark::State& state)
{
    pressOfEverything<PlanMachine>(state, u"Deselect All"_s);
}

void organizerTicksOne(benchmark::State& state)
{
    tickOne<PlanMachine>(state, u"Files"_s);
}

void organizerScrolls(benchmark::State& state)
{
    scrollThrough<PlanMachine>(state, u"Files"_s);
}

BENCHMARK(junkCleanerOpens)->Apply(asStall);
BENCHMARK(junkCleanerTicksAll)->Apply(asStall);
BENCHMARK(junkCleanerTicksOne)->Apply(asStall);
BENCHMARK(junkCleanerScrolls)->Apply(asStall);
BENCHMARK(organizerOpens)->Apply(asStall);
BENCHMARK(organizerTicksAll)->Apply(asStall);
BENCHMARK(organizerTicksOne)->Apply(asStall);
BENCHMARK(organizerScrolls)->Apply(asStall);

} // namespace
} // namespace keelbright::bench
