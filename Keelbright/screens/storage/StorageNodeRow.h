#pragma once

#include "Keelbright/widgets/rows/ListRow.h"
#include "Keelbright/widgets/rows/RowModel.h"
#include "KeelbrightCore/storage/FolderSizeNode.h"

#include <QList>

namespace keelbright {

/// What can be done with an entry of the storage browser; more for a folder than for a file.
[[nodiscard]] QList<RowAction> storageNodeActions(const FolderSizeNode& node);

/// One entry of a level; its colours and its bar follow from its share of the level's bytes.
struct StorageNodeRow
{
    FolderSizeNode node;
    qint64 totalBytes = 0; ///< of all entries of the level

    [[nodiscard]] QString iconName() const;
    [[nodiscard]] Role iconColor() const;
    [[nodiscard]] Role barColor() const;
    [[nodiscard]] double barOpacity() const;
    [[nodiscard]] ListRow listRow() const;
};

/// The entries of a level as the rows of a list.
class StorageNodeModel : public RowModel
{
    Q_OBJECT

public:
    using RowModel::RowModel;

    void setNodes(const QList<FolderSizeNode>& nodes, qint64 totalBytes);

    [[nodiscard]] const QList<FolderSizeNode>& nodes() const { return m_nodes; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] ListRow rowAt(int row) const override;

    [[nodiscard]] QString titleAt(int row) const override { return m_nodes.at(row).name; }

private:
    QList<FolderSizeNode> m_nodes;
    qint64 m_totalBytes = 0;
};

} // namespace keelbright
