#include "KeelbrightCore/platform/files/MachineRules.h"

#include "KeelbrightCore/platform/files/FileManager.h"

namespace keelbright {

bool MachineRules::isMac()
{
    return true;
}

FileURL MachineRules::applicationSupport(const FileManager& files)
{
    return files.homeDirectory().appending(QStringLiteral("Library/Application Support"));
}

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
