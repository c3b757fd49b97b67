#pragma once

#include "KeelbrightCore/backup/BackupManifest.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <QObject>
#include <optional>

namespace keelbright {

class FileChooser;

/// What the screen for a new machine reads: the manifest of a backup, or why it can't be read. Main
/// thread only; lives as long as its screen, and nothing of it is kept.
class NewMacRecoveryVM : public QObject
{
    Q_OBJECT

public:
    /// The chooser outlives the model.
    explicit NewMacRecoveryVM(FileChooser& files, QObject* parent = nullptr);

    [[nodiscard]] const std::optional<BackupManifest>& manifestData() const { return m_manifestData; }

    /// The whole line as it is shown.
    [[nodiscard]] const std::optional<QString>& loadError() const { return m_loadError; }

    /// Asks the user for a manifest and reads it; nothing changes where the chooser is dismissed. `start` is
    /// the folder that the chooser shows first.
    void loadManifest(const std::optional<FileURL>& start = std::nullopt);

Q_SIGNALS:
    /// A file has been read, or could not be read.
    void changed();

private:
    void readManifest(const FileURL& url);

    FileChooser& m_files;
    std::optional<BackupManifest> m_manifestData;
    std::optional<QString> m_loadError;
};

} // namespace keelbright
