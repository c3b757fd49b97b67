#pragma once

#include "Keelbright/screens/storage/treemap/TreemapLayout.h"

#include <QRandomGenerator>

namespace keelbright::bench {

/// A treemap of `count` entries of all sizes, at the size of a large window, so that each gets a cell.
[[nodiscard]] inline TreemapLayout treemapOf(qint64 count)
{
    QRandomGenerator random(1);
    TreemapLayout layout{.nodes = {}, .totalBytes = 0, .size = {1600, 1000}};
    for (qint64 i = 0; i < count; ++i) {
        const QString name = QStringLiteral("entry %1").arg(i);
        const qint64 size = random.bounded(1'000, 100'000);
        layout.nodes.append({QUuid::createUuid(), name, FileURL::fromPath(name), size, false});
        layout.totalBytes += size;
    }
    return layout;
}

} // namespace keelbright::bench
