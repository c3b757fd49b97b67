#pragma once

#include "KeelbrightCore/backup/BackupProgress.h"

#include <QWidget>

namespace keelbright {

class Button;
class ElidedLabel;
class NumberStrip;
class RingProgress;

/// A running backup in full: how far it is, where it goes, the file at hand and three numbers.
class BackupRunningPanel : public QWidget
{
    Q_OBJECT

public:
    explicit BackupRunningPanel(QWidget* parent = nullptr);

    /// Where the backup goes; "…" where nothing is known.
    void setDestinationName(const QString& name);
    /// Touches only what differs.
    void setProgress(const BackupProgress& progress);
    /// The user asked to stop, and the run has not ended yet.
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
