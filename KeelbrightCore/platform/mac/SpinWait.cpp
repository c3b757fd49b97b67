#include "KeelbrightCore/platform/system/SpinWait.h"

namespace keelbright {

int SpinWait::currentProcessor()
{
    return unknownProcessor; // this system moves threads as it likes, and does not report it
}

} // namespace keelbright
