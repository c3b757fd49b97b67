#pragma once

#include "KeelbrightCore/backup/BackupSnapshot.h"

#include <QList>
#include <QObject>
#include <optional>

namespace keelbright {

class FolderChooser;

/// What the restore browser shows: the mirror and the dated folders of the backup that the user has
/// opened. Main thread only; lives as long as its screen, and nothing of it is kept.
class RestoreBrowserVM : public QObject
{
    Q_OBJECT

public:
    /// The chooser outlives the model.
    explicit RestoreBrowserVM(FolderChooser& folderChooser, QObject* parent = nullptr);

    /// The folder that the user has opened.
    [[nodiscard]] const std::optional<FileURL>& chosenBackupRoot() const { return m_chosenBackupRoot; }

    /// The mirror, where there is one.
    [[nodiscard]] const std::optional<FileURL>& latestURL() const { return m_latestURL; }

    /// The dated folders, newest first.
    [[nodiscard]] const QList<BackupSnapshot>& snapshots() const { return m_snapshots; }

    /// Asks the user for the folder of a device and reads it; nothing changes where the chooser is
    /// dismissed. `start` is the folder that the chooser shows first.
    void pickBackupFolder(const std::optional<FileURL>& start = std::nullopt);
    /// Reads the opened folder once more; nothing before one was opened.
    void reload();

Q_SIGNALS:
    /// A folder has been read, for the first time or once more.
    void changed();

private:
    void open(const FileURL& root);
    /// Blocks for the listing of one folder.
    void loadSnapshots(const FileURL& root);

    FolderChooser& m_folderChooser;
    std::optional<FileURL> m_chosenBackupRoot;
    std::optional<FileURL> m_latestURL;
    QList<BackupSnapshot> m_snapshots;
};

} // namespace keelbright
