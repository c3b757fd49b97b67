#include "Keelbright/screens/apps/AppIcons.h"
#include "Keelbright/screens/apps/AppListModel.h"
#include "Keelbright/screens/review/ScanReportPanel.h"
#include "Keelbright/screens/storage/StorageNodeRow.h"
#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "bench/BenchTree.h"
#include "bench/Stall.h"
#include "bench/TreemapNodes.h"

// The lists and the treemap with their largest numbers of rows, filled without a scan.

namespace keelbright::bench {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 step = 7'919;

/// The size of a list in a screen.
constexpr QSize room{700, 600};

QList<FolderSizeNode> storageNodes()
{
    QList<FolderSizeNode> nodes;
    for (int i = fileCount(); i > 0; --i) {
        const QString name = u"entry %1.jpg"_s.arg(i);
        nodes.append(
            {QUuid::createUuid(), name, FileURL::fromPath(u"/Users/mira/"_s + name), step * i, i % 3 == 0});
    }
    return nodes;
}

FullScanReport report()
{
    FullScanReport all;
    for (int i = 0; i < fileCount(); ++i) {
        ScanFinding finding;
        finding.category = i % 2 == 0 ? ScanFinding::Category::junk : ScanFinding::Category::apps;
        finding.severity = ScanFinding::Severity::medium;
        finding.title = u"Finding %1"_s.arg(i);
        finding.detail = u"what there is to say of it"_s;
        finding.sizeBytes = step * i;
        finding.action = ScanFinding::NavigateTo{u"Junk Cleaner"_s};
        all.findings.append(finding);
    }
    return all;
}

/// One application for every twenty files: 5,000 for 100,000 files.
QList<AppInfo> apps()
{
    const int count = fileCount() / 20;
    QList<AppInfo> all;
    for (int i = 0; i < count; ++i) {
        AppFacts app;
        app.name = u"Application %1"_s.arg(step * i % count);
        app.bundleID = u"org.example.app%1"_s.arg(i);
        app.url = FileURL::fromPath(u"/Applications/Application %1.app"_s.arg(i));
        app.useCount = i;
        app.lastUsedDate = systemClock().addDays(-(i * step % 1'000));
        all.append(AppInfo(app));
    }
    return all;
}

std::unique_ptr<RowListView> openList(RowModel& model)
{
    auto list = std::make_unique<RowListView>(RowListView::Look::table, u"List"_s);
    list->resize(room);
    list->setRowModel(&model);
    list->show();
    return list;
}

void storageNodesOpen(benchmark::State& state)
{
    const QList<FolderSizeNode> nodes = storageNodes();
    for (auto _ : state) {
        StorageNodeModel model;
        std::unique_ptr<RowListView> list;
        measureStall(state, [&] {
            model.setNodes(nodes, step * fileCount());
            list = openList(model);
        });
    }
}

void storageNodesScroll(benchmark::State& state)
{
    StorageNodeModel model;
    model.setNodes(storageNodes(), step * fileCount());
    const auto list = openList(model);
    settle();
    for (auto _ : state)
        measureStall(state, [&] { scrollToTheEnd(*list); });
}

void findingsOpen(benchmark::State& state)
{
    const FullScanReport all = report();
    for (auto _ : state) {
        std::unique_ptr<ScanReportPanel> panel;
        measureStall(state, [&] {
            panel = std::make_unique<ScanReportPanel>();
            panel->resize(room);
            panel->setReport(all);
            panel->show();
        });
    }
}

void findingsScroll(benchmark::State& state)
{
    ScanReportPanel panel;
    panel.resize(room);
    panel.setReport(report());
    panel.show();
    settle();
    const auto* list = panel.findChild<RowListView*>();
    for (auto _ : state)
        measureStall(state, [&] { scrollToTheEnd(*list); });
}

void applicationsOpen(benchmark::State& state)
{
    const QList<AppInfo> all = apps();
    AppIcons icons;
    for (auto _ : state) {
        AppListModel model(icons);
        std::unique_ptr<RowListView> list;
        measureStall(state, [&] {
            model.setApps(all);
            list = openList(model);
        });
    }
}

void applicationsScroll(benchmark::State& state)
{
    AppIcons icons;
    AppListModel model(icons);
    model.setApps(apps());
    const auto list = openList(model);
    settle();
    for (auto _ : state)
        measureStall(state, [&] { scrollToTheEnd(*list); });
}

/// Sets one filter after another, as typing and the menu do.
template <typename Change> void changeFilter(benchmark::State& state, Change change)
{
    AppIcons icons;
    AppListModel model(icons);
    model.setApps(apps());
    const auto list = openList(model);
    settle();
    qsizetype turn = 0;
    for (auto _ : state) {
        AppFilter filter = model.filter();
        change(filter, ++turn);
        measureStall(state, [&] { model.setFilter(filter); });
    }
}

void applicationsSearch(benchmark::State& state)
{
    changeFilter(state,
                 [](AppFilter& filter, qsizetype turn) { filter.searchText = QString::number(turn % 10); });
}

void applicationsSort(benchmark::State& state)
{
    changeFilter(state, [](AppFilter& filter, qsizetype turn) {
        filter.sortBy = allSortOptions().at(turn % allSortOptions().size());
    });
}

/// The first layout and drawing of a treemap: 10,000 entries for 100,000 files.
void treemapOpens(benchmark::State& state)
{
    const TreemapLayout level = treemapOf(fileCount() / 10);
    for (auto _ : state) {
        std::unique_ptr<TreemapView> map;
        measureStall(state, [&] {
            map = std::make_unique<TreemapView>();
            map->resize(1600, 1000);
            map->setNodes(level.nodes, level.totalBytes);
            map->show();
        });
    }
}

/// Moves the pointer across the treemap, which must not draw its cells again.
void treemapHover(benchmark::State& state)
{
    const TreemapLayout level = treemapOf(fileCount() / 10);
    TreemapView map;
    map.resize(1600, 1000);
    map.setNodes(level.nodes, level.totalBytes);
    map.show();
    settle();
    for (auto _ : state) {
        measureStall(state, [&] {
            for (int x = 0; x < map.width(); x += 40) {
                QTest::mouseMove(&map, {x, map.height() / 2});
                QTest::qWait(2);
            }
        });
    }
}

BENCHMARK(storageNodesOpen)->Apply(asStall);
BENCHMARK(storageNodesScroll)->Apply(asStall);
BENCHMARK(findingsOpen)->Apply(asStall);
BENCHMARK(findingsScroll)->Apply(asStall);
BENCHMARK(applicationsOpen)->Apply(asStall);
BENCHMARK(applicationsScroll)->Apply(asStall);
BENCHMARK(applicationsSearch)->Apply(asStall);
BENCHMARK(applicationsSort)->Apply(asStall);
BENCHMARK(treemapOpens)->Apply(asStall);
BENCHMARK(treemapHover)->Apply(asStall);

} // namespace
} // namespace keelbright::bench
