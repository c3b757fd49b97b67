#pragma once

#include "Keelbright/widgets/AlertPresenter.h"

#include <QDialog>

class QVBoxLayout;

namespace keelbright {

class Button;
class Label;

/// The dialog of an `AlertRequest`. Escape cancels; Enter presses the button with the focus, which
/// is the safe one where the action is destructive.
class AlertDialog : public QDialog
{
    Q_OBJECT

public:
    /// The result of the second action, for which neither `accepted` nor `rejected` is emitted.
    static constexpr int secondAccepted = 2;

    AlertDialog(const AlertRequest& request, QWidget* parent);

    [[nodiscard]] Button* actionButton() const { return m_action; }

    /// Null if there is only one action.
    [[nodiscard]] Button* secondActionButton() const { return m_secondAction; }

    [[nodiscard]] Button* cancelButton() const { return m_cancel; }

    void setMessage(const QString& message);

private:
    void addButtons(QVBoxLayout& layout);

    Label* m_message = nullptr;
    Button* m_action = nullptr;
    Button* m_secondAction = nullptr;
    Button* m_cancel;
};

} // namespace keelbright
