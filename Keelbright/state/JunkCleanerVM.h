#pragma once

#include "KeelbrightCore/health/JunkCategory.h"
#include "KeelbrightCore/platform/system/Clock.h"

#include <QObject>
#include <QSet>
#include <optional>

namespace keelbright {

class ActivityStore;

/// What the junk cleaner screen shows and does: the result of a scan, the selection, the clean.
/// Nothing is deleted: all goes to the Trash, and what has reached it is logged. Main thread only;
/// lives as long as its screen.
class JunkCleanerVM : public QObject
{
    Q_OBJECT

public:
    /// How much of a category is selected.
    enum class SelectionState { none, partial, all };

    /// The store outlives the model.
    explicit JunkCleanerVM(ActivityStore& activityStore, Clock clock = systemClock,
                           QObject* parent = nullptr);

    /// What the last scan found, without what has been cleaned since; kept while a scan runs.
    [[nodiscard]] const QList<JunkCategory>& categories() const { return m_categories; }

    /// The category whose items are shown.
    [[nodiscard]] const std::optional<QString>& selectedCategoryID() const { return m_selectedCategoryID; }

    void setSelectedCategoryID(const std::optional<QString>& id);

    /// The ticked items, across all categories.
    [[nodiscard]] const QSet<QUuid>& selectedItemIDs() const { return m_selectedItemIDs; }

    void setSelectedItemIDs(const QSet<QUuid>& ids);

    [[nodiscard]] bool isScanning() const { return m_isScanning; }

    /// Whether the user is being asked before a clean; the screen's to set and to clear.
    [[nodiscard]] bool showCleanConfirm() const { return m_showCleanConfirm; }

    void setShowCleanConfirm(bool show);

    [[nodiscard]] qint64 totalSelectedBytes() const;

    /// Looks for junk in the background and drops the selection at once. Nothing of what is found
    /// is selected; its first category is shown.
    void scan();
    /// `none` for a category without items.
    [[nodiscard]] SelectionState selectionState(const JunkCategory& category) const;
    /// Selects every item of the category, or none of them where all are selected already.
    void toggleAll(const JunkCategory& category);
    void selectAll();
    void setSelected(const QUuid& itemID, bool isSelected);
    /// Moves the selected items to the Trash, one after another and before it returns. What can't
    /// be moved stays listed and selected.
    void clean();

Q_SIGNALS:
    void categoriesChanged();
    void selectedCategoryIDChanged();
    void selectedItemIDsChanged();
    void isScanningChanged();
    void showCleanConfirmChanged();
    /// Follows each of the above.
    void changed();

private:
    void setCategories(const QList<JunkCategory>& categories);
    void setIsScanning(bool isScanning);
    void announceSelection();
    [[nodiscard]] QList<JunkItem> selectedItems() const;
    [[nodiscard]] std::optional<QString> firstCategoryID() const;
    void logClean(qint64 selectedBytes, qsizetype removedCount) const;
    void dropItems(const QSet<QUuid>& removedIDs);

    ActivityStore& m_activityStore;
    Clock m_clock;
    QList<JunkCategory> m_categories;
    std::optional<QString> m_selectedCategoryID;
    QSet<QUuid> m_selectedItemIDs;
    bool m_isScanning = false;
    bool m_showCleanConfirm = false;
};

} // namespace keelbright
