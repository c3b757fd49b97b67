#include "KeelbrightCore/platform/files/MachineRules.h"

namespace keelbright {

QList<FileURL> MachineRules::placesSeenTwice()
{
    return {};
}

bool MachineRules::keepsProgramsOut()
{
    return false;
}

} // namespace keelbright
