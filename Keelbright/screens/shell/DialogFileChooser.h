#pragma once

#include "Keelbright/screens/shell/ChooserDialog.h"
#include "Keelbright/state/FileChooser.h"

#include <optional>

namespace keelbright {

/// A dialog for one existing file of a requested kind.
class OpenFileDialog : public ChooserDialog
{
    Q_OBJECT

public:
    OpenFileDialog(const FileOpenRequest& request, QWidget* parent = nullptr);

    /// Nothing if no file is chosen.
    [[nodiscard]] std::optional<FileURL> chosenFile() const;
    void accept() override;

private:
    [[nodiscard]] bool isOfRequestedKind(const FileURL& url) const;

    QStringList m_extensions;
};

/// A dialog for the place of a new file. Asks before it replaces an existing one.
class SaveFileDialog : public ChooserDialog
{
    Q_OBJECT

public:
    SaveFileDialog(const FileSaveRequest& request, QWidget* parent = nullptr);

    /// Nothing if no name is given.
    [[nodiscard]] std::optional<FileURL> chosenFile() const;
    void accept() override;

private:
    void askToReplace(const FileURL& url);
};

/// Shows its dialogs over the active window. Not the desktop's own dialogs, because the accept button
/// has to show the prompt.
class DialogFileChooser : public FileChooser
{
public:
    void chooseFile(const FileOpenRequest& request, std::function<void(const FileURL&)> chosen) override;
    void chooseSaveLocation(const FileSaveRequest& request,
                            std::function<void(const FileURL&)> chosen) override;
};

} // namespace keelbright
