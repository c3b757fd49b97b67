#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace keelbright {

/// A question with one action and a way out.
struct AlertRequest
{
    QString title;
    QString message;
    QString action;             ///< what the confirming button says
    QString cancel;             ///< what the other button says
    bool isDestructive = false; ///< the action takes something away
    /// Called on the main thread when the user takes the way out: the other button, Escape or
    /// closing the question. Never after the action, and not where the question goes with its
    /// parent. May be empty.
    std::function<void()> dismissed = {};
};

/// Asks the user a question. Handed to the screens, so that a test can answer.
class AlertPresenter
{
public:
    virtual ~AlertPresenter() = default;
    /// Shows the question over `parent` and returns at once. `confirmed` is called on the main
    /// thread when the user presses the action, and never when he presses the other button or
    /// Escape, closes the question, or `parent` goes.
    virtual void present(QWidget* parent, const AlertRequest& request, std::function<void()> confirmed) = 0;
};

/// Asks with a dialog.
class DialogAlertPresenter : public AlertPresenter
{
public:
    void present(QWidget* parent, const AlertRequest& request, std::function<void()> confirmed) override;
};

} // namespace keelbright
