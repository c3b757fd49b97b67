#pragma once

#include "Keelbright/screens/storage/StorageLevel.h"
#include "KeelbrightCore/storage/LargeFileItem.h"

#include <QObject>
#include <optional>

namespace keelbright {

class AppState;

/// What the storage browser shows and does: the levels walked, and what is done with their entries.
/// Starts empty, and nothing of it is kept. Main thread only; a measurement that is under way finds
/// nobody where the model has gone.
class StorageBrowserModel : public QObject
{
    Q_OBJECT

public:
    enum class ViewMode { list, treemap, largest };
    enum class SortOrder { size, name };

    [[nodiscard]] static const QList<ViewMode>& allViewModes();
    [[nodiscard]] static const QList<SortOrder>& allSortOrders();
    /// As it stands on screen, in English.
    [[nodiscard]] static QString rawValue(ViewMode mode);
    [[nodiscard]] static QString rawValue(SortOrder order);

    /// How many of the largest files are listed.
    static constexpr qsizetype largestFilesLimit = 50;

    /// The state outlives the model.
    explicit StorageBrowserModel(AppState& state, QObject* parent = nullptr);

    /// The levels walked; the last one is on display.
    [[nodiscard]] const QList<StorageLevel>& stack() const { return m_stack; }

    [[nodiscard]] bool isScanning() const { return m_isScanning; }

    /// What the user is being asked about.
    [[nodiscard]] const std::optional<FolderSizeNode>& pendingDelete() const { return m_pendingDelete; }

    void setPendingDelete(const std::optional<FolderSizeNode>& node);

    [[nodiscard]] SortOrder sortOrder() const { return m_sortOrder; }

    void setSortOrder(SortOrder order);

    [[nodiscard]] ViewMode viewMode() const { return m_viewMode; }

    /// Choosing the largest files looks for them, each time.
    void setViewMode(ViewMode mode);

    [[nodiscard]] const QList<LargeFileItem>& largestFiles() const { return m_largestFiles; }

    [[nodiscard]] bool isLoadingLargest() const { return m_isLoadingLargest; }

    [[nodiscard]] std::optional<FileURL> currentURL() const;
    [[nodiscard]] QList<FolderSizeNode> currentNodes() const;
    [[nodiscard]] QList<FolderSizeNode> sortedNodes() const;
    /// Of all current nodes.
    [[nodiscard]] qint64 currentBytes() const;

    /// Starts a new walk.
    void navigate(const FileURL& to);
    /// Measures the folder in the background and puts it on top when that has ended, whatever
    /// happened meanwhile.
    void drillIn(const FolderSizeNode& node);
    /// Leaves the last level, unless it is the only one.
    void goBack();
    /// Leaves all levels behind that one.
    void goTo(qsizetype level);
    /// Measures the last level once more; not while one is being measured.
    void measureAgain();
    /// Moves the node to the Trash, in silence where that fails, and measures the last level once
    /// more. The levels above keep their sizes.
    void trash(const FolderSizeNode& node);
    void loadLargestFiles();
    /// Moves to the organizer screen, which takes the folder over. The screen may be gone after.
    void organiseCurrentFolder(const FileURL& folder);
    void addToBackup(const FolderSizeNode& node);
    /// Asks the user where a new walk starts.
    void pickFolder();

Q_SIGNALS:
    void changed();

private:
    void measure(const FileURL& url);
    void replaceLastLevel();

    AppState& m_state;
    QList<StorageLevel> m_stack;
    bool m_isScanning = false;
    std::optional<FolderSizeNode> m_pendingDelete;
    SortOrder m_sortOrder = SortOrder::size;
    ViewMode m_viewMode = ViewMode::list;
    QList<LargeFileItem> m_largestFiles;
    bool m_isLoadingLargest = false;
};

} // namespace keelbright
