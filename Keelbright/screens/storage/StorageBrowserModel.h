#pragma once

#include "Keelbright/screens/storage/StorageLevel.h"
#include "Keelbright/screens/storage/StorageShortcuts.h"
#include "KeelbrightCore/platform/system/LatestTask.h"
#include "KeelbrightCore/storage/LargeFileItem.h"

#include <QObject>
#include <optional>

namespace keelbright {

class AppState;

/// What the storage browser shows and does: the levels walked, and what is done with their entries.
/// Starts empty and is never saved. Main thread only; the model may be destroyed in the middle of a
/// measurement.
class StorageBrowserModel : public QObject
{
    Q_OBJECT

public:
    enum class ViewMode { list, treemap, largest };
    enum class SortOrder { size, name };

    [[nodiscard]] static const QList<ViewMode>& allViewModes();
    [[nodiscard]] static const QList<SortOrder>& allSortOrders();
    /// The text on screen, in English.
    [[nodiscard]] static QString rawValue(ViewMode mode);
    [[nodiscard]] static QString rawValue(SortOrder order);

    /// The maximum number of the largest files.
    static constexpr qsizetype largestFilesLimit = 50;

    /// The state outlives the model.
    explicit StorageBrowserModel(AppState& state, QObject* parent = nullptr);

    /// The levels walked; the last one is on display.
    [[nodiscard]] const QList<StorageLevel>& stack() const { return m_stack; }

    /// Where a walk can start without a chooser.
    [[nodiscard]] StorageShortcuts& shortcuts() { return m_shortcuts; }

    [[nodiscard]] bool isScanning() const { return m_isScanning; }

    /// What the user is being asked about.
    [[nodiscard]] const std::optional<FolderSizeNode>& pendingDelete() const { return m_pendingDelete; }

    void setPendingDelete(const std::optional<FolderSizeNode>& node);

    [[nodiscard]] SortOrder sortOrder() const { return m_sortOrder; }

    void setSortOrder(SortOrder order);

    [[nodiscard]] ViewMode viewMode() const { return m_viewMode; }

    /// Each choice of the largest files searches for them.
    void setViewMode(ViewMode mode);

    [[nodiscard]] const QList<LargeFileItem>& largestFiles() const { return m_largestFiles; }

    [[nodiscard]] bool isLoadingLargest() const { return m_isLoadingLargest; }

    [[nodiscard]] std::optional<FileURL> currentURL() const;
    [[nodiscard]] QList<FolderSizeNode> currentNodes() const;
    [[nodiscard]] QList<FolderSizeNode> sortedNodes() const;
    /// The sum of all current nodes.
    [[nodiscard]] qint64 currentBytes() const;

    /// Starts a new walk.
    void navigate(const FileURL& to);
    /// Measures the folder in the background and appends its level when that has ended, whatever has
    /// happened in between.
    void drillIn(const FolderSizeNode& node);
    /// Leaves the last level, unless it is the only one.
    void goBack();
    /// Leaves all levels after that one.
    void goTo(qsizetype level);
    /// Measures the last level again, unless one is being measured.
    void measureAgain();
    /// Moves the node to the Trash and measures the last level again. A failure is not reported; the
    /// node is still in the level then. The levels above keep their sizes.
    void trash(const FolderSizeNode& node);
    /// Searches in the background. A search that is under way ends, and so does one whose model goes.
    void loadLargestFiles();
    /// Shows the organizer screen with this folder. The caller's screen may be destroyed by that.
    void organiseCurrentFolder(const FileURL& folder);
    /// False where it is one of them already.
    bool addToBackup(const FolderSizeNode& node);
    /// Asks the user for the folder of a new walk.
    void pickFolder();

Q_SIGNALS:
    void changed();

private:
    void measure(const FileURL& url);
    void replaceLastLevel();

    AppState& m_state;
    StorageShortcuts m_shortcuts;
    QList<StorageLevel> m_stack;
    bool m_isScanning = false;
    std::optional<FolderSizeNode> m_pendingDelete;
    SortOrder m_sortOrder = SortOrder::size;
    ViewMode m_viewMode = ViewMode::list;
    LatestTask m_largestWalk;
    QList<LargeFileItem> m_largestFiles;
    bool m_isLoadingLargest = false;
};

} // namespace keelbright
