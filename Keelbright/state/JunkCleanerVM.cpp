#include "Keelbright/state/JunkCleanerVM.h"

#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/health/JunkScanner.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/text/ByteSum.h"
#include "KeelbrightCore/records/ActivityStore.h"

#include <algorithm>

namespace keelbright {

namespace {

/// Moves each item that can be moved; gives the ids of those.
QSet<QUuid> moveToTrash(const QList<JunkItem>& items)
{
    FileManager& fileManager = FileManager::defaultManager();
    QSet<QUuid> moved;
    for (const JunkItem& item : items) {
        if (fileManager.trashItem(item.url))
            moved.insert(item.id);
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
    m_categories = categories;
    Q_EMIT categoriesChanged();
    Q_EMIT changed();
}

void JunkCleanerVM::setSelectedCategoryID(const std::optional<QString>& id)
{
    m_selectedCategoryID = id;
    Q_EMIT selectedCategoryIDChanged();
    Q_EMIT changed();
}

void JunkCleanerVM::setSelectedItemIDs(const QSet<QUuid>& ids)
{
    m_selectedItemIDs = ids;
    announceSelection();
}

void JunkCleanerVM::announceSelection()
{
    Q_EMIT selectedItemIDsChanged();
    Q_EMIT changed();
}

void JunkCleanerVM::setIsScanning(bool isScanning)
{
    m_isScanning = isScanning;
    Q_EMIT isScanningChanged();
    Q_EMIT changed();
}

void JunkCleanerVM::setShowCleanConfirm(bool show)
{
    m_showCleanConfirm = show;
    Q_EMIT showCleanConfirmChanged();
    Q_EMIT changed();
}

qint64 JunkCleanerVM::totalSelectedBytes() const
{
    qint64 total = 0;
    for (const JunkCategory& category : m_categories) {
        for (const JunkItem& item : category.items) {
            if (m_selectedItemIDs.contains(item.id))
                total = addedWithoutOverflow(total, item.sizeBytes);
        }
    }
    return total;
}

QList<JunkItem> JunkCleanerVM::selectedItems() const
{
    QList<JunkItem> selected;
    for (const JunkCategory& category : m_categories) {
        for (const JunkItem& item : category.items) {
            if (m_selectedItemIDs.contains(item.id))
                selected.append(item);
        }
    }
    return selected;
}

std::optional<QString> JunkCleanerVM::firstCategoryID() const
{
    return m_categories.isEmpty() ? std::nullopt : std::optional(m_categories.first().id);
}

void JunkCleanerVM::scan()
{
    setIsScanning(true);
    setSelectedItemIDs({});
    setSelectedCategoryID(std::nullopt);
    deliver(JunkScanner::scan(), this, [this](const QList<JunkCategory>& found) {
        setCategories(found);
        setIsScanning(false);
        setSelectedCategoryID(firstCategoryID());
    });
}

JunkCleanerVM::SelectionState JunkCleanerVM::selectionState(const JunkCategory& category) const
{
    const auto selected = std::ranges::count_if(
        category.items, [this](const JunkItem& item) { return m_selectedItemIDs.contains(item.id); });
    if (selected == 0)
        return SelectionState::none;
    return selected == category.items.size() ? SelectionState::all : SelectionState::partial;
}

void JunkCleanerVM::toggleAll(const JunkCategory& category)
{
    if (category.items.isEmpty())
        return;
    const bool wereAllSelected = selectionState(category) == SelectionState::all;
    for (const JunkItem& item : category.items) {
        if (wereAllSelected)
            m_selectedItemIDs.remove(item.id);
        else
            m_selectedItemIDs.insert(item.id);
    }
    announceSelection();
}

void JunkCleanerVM::selectAll()
{
    for (const JunkCategory& category : m_categories) {
        for (const JunkItem& item : category.items)
            m_selectedItemIDs.insert(item.id);
    }
    announceSelection();
}

void JunkCleanerVM::setSelected(const QUuid& itemID, bool isSelected)
{
    if (isSelected)
        m_selectedItemIDs.insert(itemID);
    else
        m_selectedItemIDs.remove(itemID);
    announceSelection();
}

void JunkCleanerVM::clean()
{
    const QList<JunkItem> selected = selectedItems();
    const QSet<QUuid> removed = moveToTrash(selected);
    if (!removed.isEmpty())
        logClean(sumOfBytes(selected, &JunkItem::sizeBytes), removed.size());
    setSelectedItemIDs(m_selectedItemIDs - removed);
    dropItems(removed);
    const bool isShownGone =
        m_selectedCategoryID && std::ranges::none_of(m_categories, [this](const JunkCategory& category) {
            return category.id == *m_selectedCategoryID;
        });
    if (isShownGone)
        setSelectedCategoryID(firstCategoryID());
}

/// The bytes are those of all that was selected, and the categories all that were on display, also
/// where nothing of them was moved.
void JunkCleanerVM::logClean(qint64 selectedBytes, qsizetype removedCount) const
{
    QSet<QString> categoryIDs;
    for (const JunkCategory& category : m_categories)
        categoryIDs.insert(category.id);
    const QString detail =
        removedCount == 1 ? tr("%1 item across %2 categories") : tr("%1 items across %2 categories");
    m_activityStore.append({
        .id = QUuid::createUuid(),
        .timestamp = m_clock(),
        .kind = ActivityEntry::Kind::clean,
        .title = tr("Junk files moved to Trash"),
        .detail = detail.arg(QString::number(removedCount), QString::number(categoryIDs.size())),
        .bytesAffected = selectedBytes,
        .itemCount = removedCount,
    });
}

void JunkCleanerVM::dropItems(const QSet<QUuid>& removedIDs)
{
    QList<JunkCategory> remaining = m_categories;
    for (JunkCategory& category : remaining)
        category.items.removeIf([&](const JunkItem& item) { return removedIDs.contains(item.id); });
    remaining.removeIf([](const JunkCategory& category) { return category.items.isEmpty(); });
    setCategories(remaining);
}

} // namespace keelbright
