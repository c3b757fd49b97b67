#pragma once

#include <QLineEdit>

namespace keelbright {

class Button;
class SymbolLabel;

/// A search field with a lens and, while it holds a text, a button that clears it. Control and F give it
/// the focus from anywhere in the window, Escape clears it, and Tab reaches the button.
class SearchField : public QLineEdit
{
    Q_OBJECT

public:
    /// `prompt` is shown in the empty field and is the accessible name.
    explicit SearchField(const QString& prompt, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeParts();

    SymbolLabel* m_lens;
    Button* m_clear;
};

} // namespace keelbright
