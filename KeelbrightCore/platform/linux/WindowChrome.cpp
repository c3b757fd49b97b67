#include "KeelbrightCore/platform/system/WindowChrome.h"

namespace keelbright {

bool WindowChrome::isChangeable()
{
    return false;
}

void WindowChrome::hideTitleBar(quintptr) {}

} // namespace keelbright
