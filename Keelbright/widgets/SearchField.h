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

    /// Gives the field the focus; enabled while the field is shown.
    [[nodiscard]] QAction* findAction() const { return m_find; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void placeParts();

    SymbolLabel* m_lens;
    Button* m_clear;
    QAction* m_find;
};

} // namespace keelbright
