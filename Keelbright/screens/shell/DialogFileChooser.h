#pragma once

#include "Keelbright/screens/shell/ChooserDialog.h"
#include "Keelbright/state/FileChooser.h"

#include <optional>

namespace keelbright {

/// A dialog for one file that exists, of one of the asked kinds.
class OpenFileDialog : public ChooserDialog
{
    Q_OBJECT

public:
    OpenFileDialog(const FileOpenRequest& request, QWidget* parent = nullptr);

    /// Nothing where no file is chosen.
    [[nodiscard]] std::optional<FileURL> chosenFile() const;
    void accept() override;

private:
    [[nodiscard]] bool isOfAskedKind(const FileURL& url) const;

    QStringList m_extensions;
};

/// A dialog for where a file goes. Asks before a file that is there is chosen.
class SaveFileDialog : public ChooserDialog
{
    Q_OBJECT

public:
    SaveFileDialog(const FileSaveRequest& request, QWidget* parent = nullptr);

    /// Nothing where no name is given.
    [[nodiscard]] std::optional<FileURL> chosenFile() const;
    void accept() override;

private:
    void askToReplace(const FileURL& url);
};

/// Asks with a dialog over the active window. Not with the desktop's own: its accept button has to
/// carry the prompt.
class DialogFileChooser : public FileChooser
{
public:
    void chooseFile(const FileOpenRequest& request, std::function<void(const FileURL&)> chosen) override;
    void chooseSaveLocation(const FileSaveRequest& request,
                            std::function<void(const FileURL&)> chosen) override;
};

} // namespace keelbright
