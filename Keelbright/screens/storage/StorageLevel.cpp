#include "Keelbright/screens/storage/StorageLevel.h"

#include "KeelbrightCore/platform/text/ByteSum.h"
#include "KeelbrightCore/platform/text/NameComparison.h"
#include "KeelbrightCore/storage/FolderSizeService.h"

#include <algorithm>
#include <numeric>

namespace keelbright {

QList<qsizetype> orderByName(const QList<FolderSizeNode>& nodes)
{
    const NameComparison comparison;
    QList<QByteArray> keys;
    keys.reserve(nodes.size());
    for (const FolderSizeNode& node : nodes)
        keys.append(comparison.sortKey(node.name));
    QList<qsizetype> order(nodes.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, {},
                             [&keys](qsizetype index) -> const QByteArray& { return keys.at(index); });
    return order;
}

StorageLevel measureLevel(const FileURL& url)
{
    StorageLevel level;
    level.url = url;
    level.nodes = FolderSizeService::scanLevel(url);
    level.nameOrder = orderByName(level.nodes);
    level.totalBytes = sumOfBytes(level.nodes, &FolderSizeNode::totalBytes);
    level.breakdown = typeBreakdown(level.nodes);
    return level;
}

} // namespace keelbright
