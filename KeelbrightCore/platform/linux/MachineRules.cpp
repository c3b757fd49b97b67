#include "KeelbrightCore/platform/files/MachineRules.h"

#include "KeelbrightCore/platform/files/XdgFolders.h"

namespace keelbright {

bool MachineRules::isMac()
{
    return false;
}

FileURL MachineRules::applicationSupport(const FileManager& files)
{
    return XdgFolders::data(files);
}

QList<FileURL> MachineRules::placesSeenTwice()
{
    return {};
}

bool MachineRules::keepsProgramsOut()
{
    return false;
}

} // namespace keelbright
