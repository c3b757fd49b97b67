#pragma once

#include "KeelbrightCore/backup/BackupProgress.h"

#include <QWidget>

namespace keelbright {

class Button;
class ElidedLabel;
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
    /// Disables the cancel button while a cancelled run has not ended yet.
    void setCancelling(bool isCancelling);

Q_SIGNALS:
    void cancelPressed();

private:
    RingProgress* m_ring;
    ElidedLabel* m_destination;
    ElidedLabel* m_currentFile;
    NumberStrip* m_numbers;
    Button* m_cancel;
};

} // namespace keelbright
