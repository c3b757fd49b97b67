#pragma once

#include "Keelbright/widgets/AlertPresenter.h"

#include <QList>
#include <QStringList>

namespace keelbright::testing {

/// Questions without a window: keeps each one, and the test answers when it likes.
class FakeAlertPresenter : public AlertPresenter
{
public:
    void present(QWidget*, const AlertRequest& request, std::function<void()> confirmed) override
    {
        m_requests.append(request);
        m_confirmed = std::move(confirmed);
    }

    void setMessage(QWidget*, const QString& message) override { m_messages.append(message); }

    /// The messages that an open question was changed to, in order.
    [[nodiscard]] const QStringList& messages() const { return m_messages; }

    /// Every question so far, in order.
    [[nodiscard]] const QList<AlertRequest>& requests() const { return m_requests; }

    /// Presses the action of the last question.
    void confirm() { m_confirmed(); }

    /// Cancels the last question.
    void dismiss()
    {
        if (m_requests.last().dismissed)
            m_requests.last().dismissed();
    }

    /// Presses the second action of the last question.
    void confirmSecond() { m_requests.last().secondConfirmed(); }

private:
    QList<AlertRequest> m_requests;
    QStringList m_messages;
    std::function<void()> m_confirmed;
};

} // namespace keelbright::testing
