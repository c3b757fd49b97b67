#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"

#include <QFileDialog>
#include <functional>

class QLineEdit;

namespace keelbright {

/// What the program's dialogs for files and folders share: the same on every desktop, usable by
/// keyboard alone, an accept button with words of its own. Starts at home.
class ChooserDialog : public QFileDialog
{
    Q_OBJECT

public:
    /// `prompt` is what the accept button says.
    ChooserDialog(const QString& title, const QString& prompt, AcceptMode mode, QWidget* parent = nullptr);

    /// Shows the dialog over its parent and returns at once; it deletes itself when it closes.
    void ask(std::function<void()> accepted);

protected:
    /// The field for a name; null on a toolkit without one.
    [[nodiscard]] QLineEdit* nameField() const;
    /// What is chosen; what was typed counts where it differs from what is marked.
    [[nodiscard]] QList<FileURL> chosenItems() const;

private:
    [[nodiscard]] QList<FileURL> markedItems() const;
};

} // namespace keelbright
