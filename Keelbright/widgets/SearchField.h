#pragma once

#include <QLineEdit>

namespace keelbright {

/// A field to search in: a lens, a way to clear it. Control and F goes to it from anywhere in the
/// window, Escape clears it.
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    /// `prompt` stands in the empty field and is its accessible name.
    explicit SearchField(const QString& prompt, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace keelbright
