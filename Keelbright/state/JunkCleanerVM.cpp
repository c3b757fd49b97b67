#include "Keelbright/state/JunkCleanerVM.h"

#include "Keelbright/state/Delivery.h"
#include "Keelbright/state/StoredTexts.h"
#include "KeelbrightCore/health/JunkScanner.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/records/ActivityStore.h"

namespace keelbright {

namespace {

/// The items that could be moved.
struct Moved
{
    QSet<QUuid> ids;
    TrashedItems trashed;
};

Moved moveToTrash(const QList<JunkItem>& items)
{
    FileManager& fileManager = FileManager::defaultManager();
    Moved moved;
    for (const JunkItem& item : items) {
        const auto trashed = fileManager.trashItem(item.url);
        if (!trashed)
            continue;
        moved.ids.insert(item.id);
        moved.trashed.items.append(*trashed);
    }
    return moved;
}

} // namespace

JunkCleanerVM::JunkCleanerVM(ActivityStore& activityStore, Clock clock, QObject* parent)
    : QObject(parent)
    , m_activityStore(activityStore)
    , m_clock(std::move(clock))
{}

void JunkCleanerVM::setCategories(const QList<JunkCategory>& categories)
{
    m_selection.setGroups(categories);
    Q_EMIT changed();
}

void JunkCleanerVM::setSelectedCategoryID(const std::optional<QString>& id)
{
    m_selection.setShownID(id);
    Q_EMIT changed();
}

void JunkCleanerVM::showFirstCategory()
{
    m_selection.showFirst();
    Q_EMIT changed();
}

void JunkCleanerVM::setSelectedItemIDs(const QSet<QUuid>& ids)
{
    m_selection.setIds(ids);
    Q_EMIT changed();
}

void JunkCleanerVM::setIsScanning(bool isScanning)
{
    m_isScanning = isScanning;
    Q_EMIT changed();
}

void JunkCleanerVM::setShowCleanConfirm(bool show)
{
    m_showCleanConfirm = show;
    Q_EMIT showCleanConfirmChanged();
    Q_EMIT changed();
}

void JunkCleanerVM::scan()
{
    setIsScanning(true);
    setSelectedItemIDs({});
    setSelectedCategoryID(std::nullopt);
    deliver(JunkScanner::scan(), this, [this](const QList<JunkCategory>& found) {
        setCategories(found);
        setIsScanning(false);
        showFirstCategory();
    });
}

void JunkCleanerVM::toggleAll(const JunkCategory& category)
{
    if (category.items.isEmpty())
        return;
    m_selection.setSelected(category, selectionState(category) != SelectionState::all);
    Q_EMIT changed();
}

void JunkCleanerVM::selectAll()
{
    m_selection.selectAll();
    Q_EMIT changed();
}

void JunkCleanerVM::setSelected(const QUuid& itemID, bool isSelected)
{
    m_selection.setSelected(itemID, isSelected);
    Q_EMIT changed();
}

void JunkCleanerVM::clean()
{
    const qint64 bytes = totalSelectedBytes();
    const auto [removed, trashedItems] = moveToTrash(m_selection.selectedItems());
    if (!removed.isEmpty()) {
        logClean(bytes, removed.size());
        Q_EMIT trashed(trashedItems);
    }
    setSelectedItemIDs(selectedItemIDs() - removed);
    setCategories(m_selection.groupsWithout(removed));
    if (selectedCategoryID() && m_selection.shown() == nullptr)
        showFirstCategory();
}

/// The bytes include what could not be moved, and the categories those of which nothing was selected.
void JunkCleanerVM::logClean(qint64 selectedBytes, qsizetype removedCount) const
{
    const char* detail = removedCount == 1 ? StoredTexts::itemTrashed : StoredTexts::itemsTrashed;
    m_activityStore.append({
        .id = QUuid::createUuid(),
        .timestamp = m_clock(),
        .kind = ActivityEntry::Kind::clean,
        .title = StoredTexts::stored(StoredTexts::junkTrashed),
        .detail = StoredTexts::stored(detail,
                                      {QString::number(removedCount), QString::number(categories().size())}),
        .bytesAffected = selectedBytes,
        .itemCount = removedCount,
    });
}

} // namespace keelbright
