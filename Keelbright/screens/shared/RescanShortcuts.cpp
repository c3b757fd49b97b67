#include "Keelbright/screens/shared/RescanShortcuts.h"

#include "Keelbright/screens/shared/ScreenCommand.h"

namespace keelbright {

void addRescanShortcuts(QWidget& screen, const std::function<void()>& rescan)
{
    offerCommand(screen, ScreenCommand::rescan, rescan);
}

} // namespace keelbright
