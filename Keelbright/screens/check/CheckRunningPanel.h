#pragma once

#include "Keelbright/screens/shared/RunningPanel.h"
#include "KeelbrightCore/check/CheckPace.h"
#include "KeelbrightCore/check/CheckProgress.h"

namespace keelbright {

/// The details of a running check: progress, current file, how many copies are checked, speed, time left.
class CheckRunningPanel : public RunningPanel
{
    Q_OBJECT

public:
    explicit CheckRunningPanel(QWidget* parent = nullptr);

    /// Changes only the labels whose texts differ.
    void setProgress(const CheckProgressValues& progress, const CheckPace& pace);
};

} // namespace keelbright
