#include "Keelbright/screens/junk/JunkItemModel.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr auto folderSymbol = "folder.fill"_L1;

/// Large items stand out: a tenth of a GiB and more, a GiB and more.
Role sizeColor(qint64 bytes)
{
    constexpr double gibibyte = 1'073'741'824;
    const double gibibytes = static_cast<double>(bytes) / gibibyte;
    if (gibibytes >= 1)
        return Role::red;
    return gibibytes >= 0.1 ? Role::orange : Role::primaryText;
}

QString fileSymbol(const FileURL& url)
{
    const QString extension = url.pathExtension();
    if (extension == "plist"_L1)
        return u"doc.badge.gearshape"_s;
    if (extension == "log"_L1 || extension == "crash"_L1)
        return u"doc.text.fill"_s;
    return u"doc.fill"_s;
}

} // namespace

JunkItemModel::JunkItemModel(const JunkCleanerVM& vm, QObject* parent)
    : ItemRowModel(parent)
    , m_vm(vm)
    , m_folders(new FolderLookup(this))
{
    connect(m_folders, &FolderLookup::found, this, &RowModel::announceAllRows);
}

QString JunkItemModel::symbolOf(const JunkItem& item) const
{
    // Almost every item is a folder, so it is shown as one until the answer is there.
    return m_folders->isFolder(item.id, item.url).value_or(true) ? QString(folderSymbol)
                                                                 : fileSymbol(item.url);
}

ListRow JunkItemModel::rowAt(int row) const
{
    const JunkItem& item = itemAt(row);
    ListRow shown;
    shown.mark = ListRow::Mark::checkBox;
    shown.markState = m_vm.selectedItemIDs().contains(item.id) ? Qt::Checked : Qt::Unchecked;
    shown.symbol = symbolOf(item);
    shown.symbolColor = shown.symbol == folderSymbol ? Role::accent : Role::secondaryText;
    shown.title = item.name();
    shown.detail = item.url.path();
    shown.detailElide = Qt::ElideMiddle;
    if (!item.inUseBy.isEmpty())
        shown.toolTip = tr("%1 is running and uses this cache.").arg(item.inUseBy);
    shown.value = item.formattedSize();
    shown.valueColor = sizeColor(item.sizeBytes);
    shown.actions = {{.id = RowActionId::reveal, .symbol = u"folder"_s, .name = tr("Reveal in Finder")}};
    return shown;
}

QString JunkItemModel::titleAt(int row) const
{
    return itemAt(row).name();
}

void JunkItemModel::prepareRows()
{
    m_folders->forget();
}

} // namespace keelbright
