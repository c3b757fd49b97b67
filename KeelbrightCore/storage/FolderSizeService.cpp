#include "KeelbrightCore/storage/FolderSizeService.h"

#include "KeelbrightCore/platform/files/TreeSums.h"

#include <algorithm>

namespace keelbright::FolderSizeService {

namespace {

FolderSizeNode nodeFor(const DirectoryEntry& entry)
{
    return {
        .id = QUuid::createUuid(),
        .name = entry.url.lastPathComponent(),
        .url = entry.url,
        .totalBytes = entry.fileSize.value_or(0),
        .isDirectory = entry.type == EntryType::directory,
    };
}

void measureFolders(QList<FolderSizeNode>& nodes, const FileManager& fm)
{
    QList<FileURL> folders;
    for (const FolderSizeNode& node : std::as_const(nodes)) {
        if (node.isDirectory)
            folders.append(node.url);
    }
    const QList<qint64> sizes = recursiveSizes(folders, fm);
    auto size = sizes.begin();
    for (FolderSizeNode& node : nodes) {
        if (node.isDirectory)
            node.totalBytes = *size++;
    }
}

} // namespace

qint64 recursiveSize(const FileURL& url, const FileManager& fm)
{
    return recursiveSizes({url}, fm).first();
}

QList<qint64> recursiveSizes(const QList<FileURL>& urls, const FileManager& fm)
{
    using Option = DirectoryEnumerator::Option;
    const auto sums = sumTrees(
        urls, Option::skipsHiddenFiles | Option::skipsPackageDescendants,
        [](DirectoryEnumerator& walk) { return walk.fileSize(); }, fm);
    QList<qint64> sizes;
    sizes.reserve(sums.size());
    for (const TreeSum& sum : sums)
        sizes.append(sum.bytes);
    return sizes;
}

QList<FolderSizeNode> scanLevel(const FileURL& url)
{
    const FileManager& fm = FileManager::defaultManager();
    const auto entries = fm.contentsOfDirectory(url, DirectoryEnumerator::Option::skipsHiddenFiles);
    if (!entries)
        return {};
    QList<FolderSizeNode> nodes;
    nodes.reserve(entries->size());
    for (const DirectoryEntry& entry : *entries) {
        if (entry.type != EntryType::symbolicLink)
            nodes.append(nodeFor(entry));
    }
    measureFolders(nodes, fm);
    std::ranges::stable_sort(nodes, std::ranges::greater(), &FolderSizeNode::totalBytes);
    return nodes;
}

} // namespace keelbright::FolderSizeService
