#pragma once

#include "KeelbrightCore/backup/BackupProgress.h"

#include <QWidget>

namespace keelbright {

class Button;
class ElidedLabel;
class Label;
class NumberStrip;
class RingProgress;

/// The details of a running backup: progress, destination, current file and three numbers.
class BackupRunningPanel : public QWidget
{
    Q_OBJECT

public:
    explicit BackupRunningPanel(QWidget* parent = nullptr);

    /// The name of the destination; an empty one is shown as "…".
    void setDestinationName(const QString& name);
    /// Changes only the labels whose texts differ.
    void setProgress(const BackupProgress& progress);
    /// While a cancelled run has not ended yet: disables the cancel button and says so beside it.
    void setCancelling(bool isCancelling);

Q_SIGNALS:
    void cancelPressed();

private:
    [[nodiscard]] QLayout* cancelRow();

    RingProgress* m_ring;
    ElidedLabel* m_destination;
    ElidedLabel* m_currentFile;
    NumberStrip* m_numbers;
    Button* m_cancel;
    Label* m_cancelling;
};

} // namespace keelbright
