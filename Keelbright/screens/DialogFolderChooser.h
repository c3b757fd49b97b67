#pragma once

#include "Keelbright/state/FolderChooser.h"

#include <QFileDialog>

namespace keelbright {

/// A dialog for one or several folders, the same on every desktop and usable by keyboard alone.
class FolderDialog : public QFileDialog
{
    Q_OBJECT

public:
    FolderDialog(const FolderChooserRequest& request, QWidget* parent = nullptr);

    /// The chosen folders; what was typed counts where it differs from what is marked.
    [[nodiscard]] QList<FileURL> chosenFolders() const;
    void accept() override;

private:
    [[nodiscard]] QList<FileURL> markedFolders() const;
};

/// Asks for folders with a `FolderDialog` over the active window.
class DialogFolderChooser : public FolderChooser
{
public:
    void chooseFolders(const FolderChooserRequest& request,
                       std::function<void(const QList<FileURL>&)> chosen) override;
};

} // namespace keelbright
