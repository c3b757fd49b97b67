#include "Keelbright/state/NotificationCenter.h"

namespace keelbright {

NotificationCenter& NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

} // namespace keelbright
