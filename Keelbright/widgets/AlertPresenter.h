#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace keelbright {

/// A question with one action or two and a way out.
struct AlertRequest
{
    QString title;
    QString message;
    QString action;             ///< what the confirming button says
    QString cancel;             ///< what the other button says
    bool isDestructive = false; ///< the actions take something away
    /// Called on the main thread when the user takes the way out: the other button, Escape or
    /// closing the question. Never after the action, and not where the question goes with its
    /// parent. May be empty.
    std::function<void()> dismissed = {};
    /// Another action, as much as the first; empty for none.
    QString secondAction = {};
    std::function<void()> secondConfirmed = {}; ///< called as `confirmed` is, for the second action
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
    /// Other words for the question that is open over `parent`; nothing where none is.
    virtual void setMessage(QWidget* parent, const QString& message) = 0;
};

/// Asks with a dialog.
class DialogAlertPresenter : public AlertPresenter
{
public:
    void present(QWidget* parent, const AlertRequest& request, std::function<void()> confirmed) override;
    void setMessage(QWidget* parent, const QString& message) override;
};

} // namespace keelbright
