#include "KeelbrightCore/platform/system/WindowChrome.h"

#include "KeelbrightCore/platform/mac/ObjectiveC.h"

namespace keelbright {

bool WindowChrome::isChangeable()
{
    return true;
}

void WindowChrome::hideTitleBar(quintptr view)
{
    constexpr long titleHidden = 1; // NSWindowTitleHidden
    const ObjectiveC::AutoreleasePool pool;
    const id window = ObjectiveC::send<id>(reinterpret_cast<id>(view), "window");
    // The program's name stays in the menu of windows and for a screen reader.
    ObjectiveC::send<void>(window, "setTitleVisibility:", titleHidden);
    ObjectiveC::send<void>(window, "setTitlebarAppearsTransparent:", static_cast<BOOL>(true));
}

} // namespace keelbright
