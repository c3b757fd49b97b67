#pragma once

#include "Keelbright/screens/storage/treemap/TreemapLayout.h"

#include <QList>
#include <QUuid>
#include <numeric>

namespace keelbright::testing {

/// Entries "0", "1" and so on of these sizes; those of even number are folders.
[[nodiscard]] inline QList<FolderSizeNode> treemapNodes(const QList<qint64>& sizes)
{
    QList<FolderSizeNode> nodes;
    for (const qint64 size : sizes) {
        const QString name = QString::number(nodes.size());
        nodes.append({.id = QUuid::createUuid(),
                      .name = name,
                      .url = FileURL::fromPath(u'/' + name),
                      .totalBytes = size,
                      .isDirectory = nodes.size() % 2 == 0});
    }
    return nodes;
}

[[nodiscard]] inline qint64 bytesOf(const QList<FolderSizeNode>& nodes)
{
    return std::accumulate(nodes.begin(), nodes.end(), qint64(0),
                           [](qint64 sum, const FolderSizeNode& node) { return sum + node.totalBytes; });
}

[[nodiscard]] inline QList<TreemapCell> treemapCells(const QList<qint64>& sizes, const QSizeF& size)
{
    const QList<FolderSizeNode> nodes = treemapNodes(sizes);
    return TreemapLayout{nodes, bytesOf(nodes), size}.layout();
}

} // namespace keelbright::testing
