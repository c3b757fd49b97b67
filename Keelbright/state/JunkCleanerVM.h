#pragma once

#include "Keelbright/state/GroupSelection.h"
#include "KeelbrightCore/health/JunkCategory.h"
#include "KeelbrightCore/platform/system/Clock.h"
#include "KeelbrightCore/storage/UndoableMoves.h"

#include <QObject>

namespace keelbright {

class ActivityStore;

/// What the junk cleaner screen shows and does: the result of a scan, the selection, the clean.
/// Nothing is deleted: all goes to the Trash, and what has reached it is logged. Main thread only;
/// lives as long as its screen.
class JunkCleanerVM : public QObject
{
    Q_OBJECT

public:
    using SelectionState = keelbright::SelectionState;

    /// The store outlives the model.
    explicit JunkCleanerVM(ActivityStore& activityStore, Clock clock = systemClock,
                           QObject* parent = nullptr);

    /// What the last scan found and was not cleaned since; kept while a new scan runs.
    [[nodiscard]] const QList<JunkCategory>& categories() const { return m_selection.groups(); }

    /// The category whose items are shown.
    [[nodiscard]] const std::optional<QString>& selectedCategoryID() const { return m_selection.shownID(); }

    void setSelectedCategoryID(const std::optional<QString>& id);

    /// Null where no category has the `selectedCategoryID`.
    [[nodiscard]] const JunkCategory* selectedCategory() const { return m_selection.shown(); }

    /// The ticked items, across all categories.
    [[nodiscard]] const QSet<QUuid>& selectedItemIDs() const { return m_selection.ids(); }

    void setSelectedItemIDs(const QSet<QUuid>& ids);

    [[nodiscard]] bool isScanning() const { return m_isScanning; }

    /// Whether the user is being asked before a clean; set and cleared by the screen.
    [[nodiscard]] bool showCleanConfirm() const { return m_showCleanConfirm; }

    void setShowCleanConfirm(bool show);

    [[nodiscard]] qint64 totalSelectedBytes() const { return m_selection.selectedBytes(); }

    /// Looks for junk in the background and clears the selection at once. Then shows the first category
    /// found, with nothing selected.
    void scan();

    /// `none` for a category without items.
    [[nodiscard]] SelectionState selectionState(const JunkCategory& category) const
    {
        return m_selection.state(category);
    }

    /// Selects every item of the category, or none of them if all are selected already.
    void toggleAll(const JunkCategory& category);
    void selectAll();
    void setSelected(const QUuid& itemID, bool isSelected);
    /// Moves the selected items to the Trash before it returns. What can't be moved stays listed and
    /// selected.
    void clean();

Q_SIGNALS:
    /// A clean has moved items, and this is what an undo needs.
    void trashed(const keelbright::UndoableMoves& moves);
    void showCleanConfirmChanged();
    /// Any property was set.
    void changed();

private:
    void setCategories(const QList<JunkCategory>& categories);
    void setIsScanning(bool isScanning);
    void showFirstCategory();
    void logClean(qint64 selectedBytes, qsizetype removedCount) const;

    ActivityStore& m_activityStore;
    Clock m_clock;
    GroupSelection<JunkCategory, &JunkCategory::items> m_selection;
    bool m_isScanning = false;
    bool m_showCleanConfirm = false;
};

} // namespace keelbright
