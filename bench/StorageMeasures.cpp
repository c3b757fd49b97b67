#include "bench/StorageMeasures.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/storage/FolderSizeService.h"
#include "KeelbrightCore/storage/LargestFilesScanner.h"
#include "KeelbrightCore/storage/OrganizerService.h"
#include "bench/Memory.h"
#include "bench/TreemapNodes.h"

#include <QHash>

namespace keelbright::bench {

namespace {

int measureSize(const FileURL& tree, Caches caches)
{
    return measureWork(caches, "bytes",
                       [&] { return FolderSizeService::recursiveSize(tree, FileManager::defaultManager()); });
}

int measureLevel(const FileURL& folder, Caches caches)
{
    return measureWork(caches, "entries", [&] { return FolderSizeService::scanLevel(folder).size(); });
}

/// The walk without which no search for the largest files is possible.
int measureWalk(const FileURL& tree, Caches caches)
{
    return measureWork(caches, "bytes", [&] {
        using Option = DirectoryEnumerator::Option;
        const auto walk = FileManager::defaultManager().enumerator(tree, Option::skipsHiddenFiles |
                                                                             Option::skipsPackageDescendants);
        qint64 bytes = 0;
        while (walk && (*walk)->next())
            bytes += (*walk)->fileSize().value_or(0);
        return bytes;
    });
}

int measureLargest(const FileURL& tree, Caches caches)
{
    constexpr qsizetype asOnTheScreen = 50;
    const long before = peakMemory();
    const int code =
        measureWork(caches, "files", [&] { return LargestFilesScanner::scan(tree, asOnTheScreen).size(); });
    std::printf("peak %ld\ngrowth %ld\n", peakMemory(), peakMemory() - before);
    return code;
}

int measureTreemap(qint64 cells)
{
    const TreemapLayout treemap = treemapOf(cells);
    return measureWork(Caches::warm, "cells", [&] { return treemap.layout().size(); });
}

int measurePlan(const FileURL& folder, Caches caches)
{
    return measureWork(caches, "groups", [&] { return OrganizerService::propose(folder).size(); });
}

} // namespace

std::optional<int> measureStorage(const QString& work, const QString& argument, Caches caches)
{
    static const QHash<QString, int (*)(const FileURL&, Caches)> works = {
        {QStringLiteral("size"), measureSize}, {QStringLiteral("level"), measureLevel},
        {QStringLiteral("walk"), measureWalk}, {QStringLiteral("largest"), measureLargest},
        {QStringLiteral("plan"), measurePlan},
    };
    if (work == QStringLiteral("treemap"))
        return measureTreemap(argument.toLongLong());
    const auto found = works.find(work);
    if (found == works.end())
        return std::nullopt;
    return (*found)(FileURL::fromPath(argument), caches);
}

} // namespace keelbright::bench
