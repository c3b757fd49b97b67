#include "KeelbrightCore/storage/LargestFilesScanner.h"

#include "KeelbrightCore/platform/files/FileManager.h"

#include <algorithm>

namespace keelbright::LargestFilesScanner {

namespace {

using Option = DirectoryEnumerator::Option;

void sortLargestFirst(QList<LargeFileItem>& items)
{
    std::ranges::stable_sort(items, std::ranges::greater(), &LargeFileItem::sizeBytes);
}

LargeFileItem itemFor(const DirectoryEnumerator& walk, qint64 size)
{
    return {.id = QUuid::createUuid(), .url = walk.url(), .sizeBytes = size};
}

/// Replaces the smallest item of a full and sorted list, and moves the new one up to its place.
void replaceSmallest(QList<LargeFileItem>& items, LargeFileItem item)
{
    items.last() = std::move(item);
    for (qsizetype i = items.size() - 1; i > 0 && items[i - 1].sizeBytes < items[i].sizeBytes; --i)
        std::swap(items[i - 1], items[i]);
}

void walk(const FileURL& url, const FileManager& fm, QList<LargeFileItem>& results, qsizetype limit,
          const Cancellation& cancellation)
{
    const auto opened = fm.enumerator(url, Option::skipsHiddenFiles | Option::skipsPackageDescendants |
                                               Option::followsRootLink);
    if (!opened)
        return;
    DirectoryEnumerator& entries = **opened;
    while (!cancellation.isCancelled() && entries.next()) {
        if (entries.type() != EntryType::regularFile)
            continue;
        const qint64 size = entries.fileSize().value_or(0);
        if (size <= 0)
            continue;
        if (results.size() < limit) {
            results.append(itemFor(entries, size));
            if (results.size() == limit)
                sortLargestFirst(results);
        } else if (results.constLast().sizeBytes < size) {
            replaceSmallest(results, itemFor(entries, size));
        }
    }
}

} // namespace

QList<LargeFileItem> scan(const FileURL& root, qsizetype limit, const Cancellation& cancellation)
{
    if (limit < 1)
        return {};
    QList<LargeFileItem> items;
    walk(root, FileManager::defaultManager(), items, limit, cancellation);
    sortLargestFirst(items);
    return items;
}

} // namespace keelbright::LargestFilesScanner
