#include "Keelbright/screens/StorageLevel.h"

#include "KeelbrightCore/platform/ByteSum.h"
#include "KeelbrightCore/storage/FolderSizeService.h"

#include <QCollator>
#include <algorithm>
#include <numeric>
#include <vector>

namespace keelbright {

namespace {

/// The C locale is for machines, and sorts all capitals first.
QLocale localeOfPeople()
{
    const QLocale locale;
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

} // namespace

QList<qsizetype> orderByName(const QList<FolderSizeNode>& nodes)
{
    QCollator collator(localeOfPeople());
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> keys;
    keys.reserve(static_cast<size_t>(nodes.size()));
    for (const FolderSizeNode& node : nodes)
        keys.push_back(collator.sortKey(node.name));
    QList<qsizetype> order(nodes.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, [&keys](qsizetype left, qsizetype right) {
        return keys[static_cast<size_t>(left)].compare(keys[static_cast<size_t>(right)]) < 0;
    });
    return order;
}

StorageLevel measureLevel(const FileURL& url)
{
    StorageLevel level;
    level.url = url;
    level.nodes = FolderSizeService::scanLevel(url);
    level.nameOrder = orderByName(level.nodes);
    for (const FolderSizeNode& node : std::as_const(level.nodes))
        level.totalBytes = addedWithoutOverflow(level.totalBytes, node.totalBytes);
    level.breakdown = typeBreakdown(level.nodes);
    return level;
}

} // namespace keelbright
