#include "KeelbrightCore/platform/system/SystemPanels.h"

namespace keelbright {

bool SystemPanels::areThere()
{
    return false; // the desktops' own panels can't show the text of a button
}

// Panels, where there are some, keep what they are given to call.
// NOLINTBEGIN(performance-unnecessary-value-param)
void SystemPanels::open(const OpenPanelRequest&, std::function<void(const QList<FileURL>&)>) {}

void SystemPanels::save(const SavePanelRequest&, std::function<void(const FileURL&)>) {}

// NOLINTEND(performance-unnecessary-value-param)

} // namespace keelbright
