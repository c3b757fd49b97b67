#pragma once

#include "Keelbright/widgets/AlertPresenter.h"

#include <QDialog>

namespace keelbright {

class Button;

/// The dialog of an `AlertRequest`. Escape cancels; Enter presses the button with the focus, which
/// is the safe one where the action is destructive.
class AlertDialog : public QDialog
{
    Q_OBJECT

public:
    AlertDialog(const AlertRequest& request, QWidget* parent);

    [[nodiscard]] Button* actionButton() const { return m_action; }

    [[nodiscard]] Button* cancelButton() const { return m_cancel; }

private:
    Button* m_action;
    Button* m_cancel;
};

} // namespace keelbright
