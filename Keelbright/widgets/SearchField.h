#pragma once

#include <QLineEdit>

namespace keelbright {

/// A search field with a lens and a button that clears it. Control and F give it the focus from
/// anywhere in the window, Escape clears it.
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    /// `prompt` is shown in the empty field and is the accessible name.
    explicit SearchField(const QString& prompt, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace keelbright
