#pragma once

#include "Keelbright/widgets/Page.h"
#include "KeelbrightCore/backup/BackupSnapshot.h"

#include <optional>

namespace keelbright {

class AppState;
class RowListView;
class SectionHeader;
class SnapshotRows;
class Workspace;

/// Finds what a backup holds and opens it in the desktop's file browser, where files are copied
/// back by hand. Forgets the opened folder when it goes.
class RestoreBrowserView : public Page
{
    Q_OBJECT

public:
    /// What is handed in outlives the screen.
    RestoreBrowserView(AppState& state, Workspace& workspace, QWidget* parent = nullptr);

    /// Asks the user for the folder of a device and shows what is in it.
    void pickBackupFolder();
    /// Looks for the mirror and for dated folders below `root`, and shows them in place of what was
    /// shown before. Blocks for the listing of one folder.
    void loadSnapshots(const FileURL& root);

    [[nodiscard]] const std::optional<FileURL>& chosenBackupRoot() const { return m_chosenBackupRoot; }

    [[nodiscard]] const std::optional<FileURL>& latestURL() const { return m_latestURL; }

    /// Newest first.
    [[nodiscard]] const QList<BackupSnapshot>& snapshots() const;

private:
    void addHeader();
    void addLatest();
    void addSnapshots();
    void openFolder(const FileURL& root);
    void redraw();

    AppState& m_state;
    Workspace& m_workspace;
    std::optional<FileURL> m_chosenBackupRoot;
    std::optional<FileURL> m_latestURL;
    SnapshotRows* m_rows;
    QWidget* m_nothingOpened = nullptr;
    QWidget* m_latest = nullptr;
    QWidget* m_found = nullptr;
    SectionHeader* m_heading = nullptr;
    RowListView* m_list = nullptr;
    QWidget* m_nothingFound = nullptr;
};

} // namespace keelbright
