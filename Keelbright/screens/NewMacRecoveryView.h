#pragma once

#include "Keelbright/widgets/Page.h"
#include "KeelbrightCore/backup/BackupManifest.h"

#include <optional>

namespace keelbright {

class FileChooser;
class FileURL;
class Label;

/// A guide for the first hours on a new machine, and a reader for the manifest that a backup
/// leaves. Restores nothing by itself, and forgets the manifest when it goes.
class NewMacRecoveryView : public Page
{
    Q_OBJECT

public:
    /// The chooser outlives the screen.
    explicit NewMacRecoveryView(FileChooser& files, QWidget* parent = nullptr);

    /// Asks the user for a manifest and shows it, or why it can't be read.
    void loadManifest();

    [[nodiscard]] const std::optional<BackupManifest>& manifestData() const { return m_manifestData; }

    /// The whole line as it is shown.
    [[nodiscard]] const std::optional<QString>& loadError() const { return m_loadError; }

private:
    void addHeader();
    void addSteps();
    void addManifestSection();
    void readManifest(const FileURL& url);
    void redraw();

    FileChooser& m_files;
    std::optional<BackupManifest> m_manifestData;
    std::optional<QString> m_loadError;
    QWidget* m_errorLine = nullptr;
    Label* m_errorText = nullptr;
    QWidget* m_summary = nullptr;
};

} // namespace keelbright
