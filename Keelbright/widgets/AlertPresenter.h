#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace keelbright {

/// A question with one or two actions and a button that cancels.
struct AlertRequest
{
    QString title;
    QString message;
    QString action;             ///< the text of the confirming button
    QString cancel;             ///< the text of the cancelling button
    bool isDestructive = false; ///< the actions take something away
    /// Called on the main thread when the user cancels with the button, with Escape or by closing the
    /// question. Not called after an action, nor if the question is destroyed with its parent. May be
    /// empty.
    std::function<void()> dismissed = {};
    /// The text of the second action; empty for none.
    QString secondAction = {};
    std::function<void()> secondConfirmed = {}; ///< called like `confirmed`, for the second action
};

/// Asks the user a question. An interface, so that a test can give the answer.
class AlertPresenter
{
public:
    virtual ~AlertPresenter() = default;
    /// Shows the question over `parent` and returns at once. `confirmed` is called on the main
    /// thread when the user presses the action; it is not called if the user cancels or `parent` is
    /// destroyed.
    virtual void present(QWidget* parent, const AlertRequest& request, std::function<void()> confirmed) = 0;
    /// Replaces the message of the question that is open over `parent`, if there is one.
    virtual void setMessage(QWidget* parent, const QString& message) = 0;
};

/// Asks with an `AlertDialog`.
class DialogAlertPresenter : public AlertPresenter
{
public:
    void present(QWidget* parent, const AlertRequest& request, std::function<void()> confirmed) override;
    void setMessage(QWidget* parent, const QString& message) override;
};

} // namespace keelbright
