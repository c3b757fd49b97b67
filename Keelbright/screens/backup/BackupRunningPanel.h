#pragma once

#include "Keelbright/screens/shared/RunningPanel.h"
#include "KeelbrightCore/backup/BackupProgress.h"

namespace keelbright {

/// The details of a running backup: progress, destination, current file and three numbers.
class BackupRunningPanel : public RunningPanel
{
    Q_OBJECT

public:
    explicit BackupRunningPanel(QWidget* parent = nullptr);

    /// The name of the destination; an empty one is shown as "…".
    void setDestinationName(const QString& name);
    /// Changes only the labels whose texts differ.
    void setProgress(const BackupProgress& progress);
};

} // namespace keelbright
