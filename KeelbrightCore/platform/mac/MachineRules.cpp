#include "KeelbrightCore/platform/files/MachineRules.h"

namespace keelbright {

QList<FileURL> MachineRules::placesSeenTwice()
{
    // The volume of what is not the system's own. Its folders are joined to those of the system's volume,
    // where everybody looks for them.
    return {FileURL::fromNativePath("/System/Volumes/Data")};
}

bool MachineRules::keepsProgramsOut()
{
    return true;
}

} // namespace keelbright
