#pragma once

#include "Keelbright/screens/shell/ChooserDialog.h"
#include "Keelbright/state/FolderChooser.h"

namespace keelbright {

/// A dialog for one or several folders.
class FolderDialog : public ChooserDialog
{
    Q_OBJECT

public:
    FolderDialog(const FolderChooserRequest& request, QWidget* parent = nullptr);

    /// The typed folders if they differ from the marked ones, else the marked ones.
    [[nodiscard]] QList<FileURL> chosenFolders() const { return chosenItems(); }

    void accept() override;
};

/// Asks for folders with a `FolderDialog` over the active window.
class DialogFolderChooser : public FolderChooser
{
public:
    void chooseFolders(const FolderChooserRequest& request,
                       std::function<void(const QList<FileURL>&)> chosen) override;
};

} // namespace keelbright
