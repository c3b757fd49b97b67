#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QFileDialog>
#include <functional>

class QLineEdit;

namespace keelbright {

/// The base of the program's dialogs for files and folders. Looks the same on every desktop, works
/// with the keyboard alone, and shows a given text on the accept button. Starts in the home folder.
class ChooserDialog : public QFileDialog
{
    Q_OBJECT

public:
    /// `prompt` is the text of the accept button.
    ChooserDialog(const QString& title, const QString& prompt, AcceptMode mode, QWidget* parent = nullptr);

    /// Shows the dialog over its parent and returns at once. The dialog deletes itself when it closes.
    void ask(std::function<void()> accepted);

protected:
    /// The field for a name; null on a toolkit without one.
    [[nodiscard]] QLineEdit* nameField() const;
    /// The chosen items: the typed names if they differ from the marked items.
    [[nodiscard]] QList<FileURL> chosenItems() const;

private:
    [[nodiscard]] QList<FileURL> markedItems() const;
};

} // namespace keelbright
