#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/files/MountedVolume.h"

#include <QFileDialog>
#include <functional>
#include <optional>

class QLineEdit;

namespace keelbright {

/// The base of the program's dialogs for files and folders. Looks the same on every desktop, works
/// with the keyboard alone, and shows a given text on the accept button. Beside the files it lists the
/// mounted drives by their labels. Starts in the home folder.
class ChooserDialog : public QFileDialog
{
    Q_OBJECT

public:
    /// `prompt` is the text of the accept button.
    ChooserDialog(const QString& title, const QString& prompt, AcceptMode mode, QWidget* parent = nullptr);

    /// Shows the dialog over its parent and returns at once. The dialog deletes itself when it closes.
    void ask(std::function<void()> accepted);

protected:
    /// Shows the folder first, or the one around it where it is gone; where both are, the home stays.
    void startAt(const std::optional<FileURL>& folder);

    /// The field for a name; null on a toolkit without one.
    [[nodiscard]] QLineEdit* nameField() const;
    /// The chosen items: the typed names if they differ from the marked items.
    [[nodiscard]] QList<FileURL> chosenItems() const;

private:
    void showLabels(const QList<MountedVolume>& volumes);
    [[nodiscard]] QList<FileURL> markedItems() const;
};

} // namespace keelbright
