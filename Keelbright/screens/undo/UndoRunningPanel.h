#pragma once

#include <QWidget>

namespace keelbright {

class BarProgress;
class Button;
class Label;

/// An undo under way: a bar, a count and a button that cancels it.
class UndoRunningPanel : public QWidget
{
    Q_OBJECT

public:
    explicit UndoRunningPanel(QWidget* parent = nullptr);

    /// In items; `total` is above 0.
    void setProgress(qint64 tried, qint64 total);
    /// Disables the button and says so beside it.
    void setCancelling(bool isCancelling);

Q_SIGNALS:
    void cancelPressed();

private:
    BarProgress* m_bar;
    Label* m_count;
    Label* m_cancelling;
    Button* m_cancel;
};

} // namespace keelbright
