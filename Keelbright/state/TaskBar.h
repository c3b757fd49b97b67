#pragma once

namespace keelbright {

/// The program's entry in the desktop's task bar, where the desktop has one. Main thread; the calls do not
/// wait for it.
class TaskBar
{
public:
    virtual ~TaskBar() = default;
    /// Shows a bar on the entry, filled from 0 to 1.
    virtual void showProgress(double fraction) = 0;
    virtual void hideProgress() = 0;
};

} // namespace keelbright
