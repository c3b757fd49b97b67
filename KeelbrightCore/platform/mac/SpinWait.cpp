#include "KeelbrightCore/platform/system/SpinWait.h"

namespace keelbright {

int SpinWait::currentProcessor()
{
    return unknownProcessor; // this system moves threads as it likes, and does not report it
}

bool SpinWait::moveAwayFrom(int)
{
    return false; // nor can it be asked to
}

} // namespace keelbright
