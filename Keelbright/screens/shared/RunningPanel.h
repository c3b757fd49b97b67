#pragma once

#include <QWidget>

namespace keelbright {

class Button;
class ElidedLabel;
class Label;
class NumberStrip;
class RingProgress;

/// A long piece of work under way: a ring, two lines and a third one while the remaining time is known, some
/// numbers and a button that cancels it.
class RunningPanel : public QWidget
{
    Q_OBJECT

public:
    /// `ringName` is the accessible name of the ring, `cancel` the text of the button.
    RunningPanel(const QString& ringName, const QString& cancel, QWidget* parent = nullptr);

    /// From 0 to 1; shown in whole percent, rounded down.
    void setFraction(double fraction);
    /// Such as "About 4 minutes left"; empty while that is not known. Nothing else moves when it appears.
    void setTimeLeft(const QString& text);
    /// While a cancelled work has not ended yet: disables the button and says so beside it.
    void setCancelling(bool isCancelling);

Q_SIGNALS:
    void cancelPressed();

protected:
    void setTitle(const QString& title);
    /// What is being worked on.
    void setDetail(const QString& detail);

    [[nodiscard]] NumberStrip& numbers() { return *m_numbers; }

private:
    [[nodiscard]] QLayout* cancelRow();

    RingProgress* m_ring;
    ElidedLabel* m_title;
    ElidedLabel* m_detail;
    Label* m_timeLeft;
    NumberStrip* m_numbers;
    Button* m_cancel;
    Label* m_cancelling;
};

} // namespace keelbright
