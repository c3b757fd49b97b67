#include "Keelbright/screens/storage/StorageNodeRow.h"

#include "Keelbright/screens/storage/StorageFileTypes.h"

#include <QCoreApplication>
#include <QHash>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr double largeShare = 0.4;
constexpr double mediumShare = 0.15;
constexpr qsizetype maximumActions = 4;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(StorageNodeRow)
};

QString folderIcon(const QString& name)
{
    static const QHash<QString, QString> icons{
        {u"documents"_s, u"doc.fill"_s},
        {u"desktop"_s, u"menubar.rectangle"_s},
        {u"pictures"_s, u"photo.fill"_s},
        {u"downloads"_s, u"arrow.down.circle.fill"_s},
        {u"movies"_s, u"film.fill"_s},
        {u"music"_s, u"music.note"_s},
        {u"library"_s, u"books.vertical.fill"_s},
    };
    return icons.value(name.toLower(), u"folder.fill"_s);
}

} // namespace

QList<RowAction> storageNodeActions(const FolderSizeNode& node)
{
    QList<RowAction> actions;
    if (node.isDirectory) {
        actions = {
            {RowActionId::addToBackup, u"plus.circle"_s, Texts::tr("Add to Backup Sources")},
            {RowActionId::organise, u"folder.badge.gearshape"_s, Texts::tr("Organise this folder")},
        };
    }
    actions.append({
        {RowActionId::reveal, u"arrow.up.forward.square"_s, Texts::tr("Reveal in Finder")},
        {.id = RowActionId::trash,
         .symbol = u"trash"_s,
         .name = Texts::tr("Move to Trash"),
         .isDelete = true},
    });
    return actions;
}

QString StorageNodeRow::iconName() const
{
    return node.isDirectory ? folderIcon(node.name) : fileIcon(node.name);
}

Role StorageNodeRow::iconColor() const
{
    const double share = node.fraction(totalBytes);
    if (share > largeShare)
        return Role::red;
    if (share > mediumShare)
        return Role::orange;
    return node.isDirectory ? Role::accent : Role::secondaryText;
}

Role StorageNodeRow::barColor() const
{
    const double share = node.fraction(totalBytes);
    if (share > largeShare)
        return Role::red;
    return share > mediumShare ? Role::orange : Role::accent;
}

double StorageNodeRow::barOpacity() const
{
    switch (barColor()) {
    case Role::red:
        return 0.75;
    case Role::orange:
        return 1;
    default:
        return 0.7;
    }
}

ListRow StorageNodeRow::listRow() const
{
    ListRow row;
    row.picture = ListRow::Picture::tile;
    row.symbol = iconName();
    row.symbolColor = iconColor();
    row.title = node.name;
    row.value = node.formattedSize();
    row.bar = node.fraction(totalBytes);
    row.barColor = barColor();
    row.barOpacity = barOpacity();
    row.actions = storageNodeActions(node);
    row.actionRoom = maximumActions;
    row.hasChevron = true;
    row.chevronColor = node.isDirectory ? Role::accent : Role::window;
    return row;
}

void StorageNodeModel::setNodes(const QList<FolderSizeNode>& nodes, qint64 totalBytes)
{
    beginResetModel();
    m_nodes = nodes;
    m_totalBytes = totalBytes;
    endResetModel();
}

int StorageNodeModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_nodes.size());
}

ListRow StorageNodeModel::rowAt(int row) const
{
    return StorageNodeRow{m_nodes.at(row), m_totalBytes}.listRow();
}

} // namespace keelbright
