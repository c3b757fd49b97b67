// Where a Mac has what can be thrown away.

#include "KeelbrightCore/platform/files/MacJunk.h"

namespace keelbright {

namespace {

QList<FileURL> below(const FileURL& folder, std::initializer_list<const char*> paths)
{
    QList<FileURL> places;
    for (const char* path : paths)
        places.append(folder.appendingNative(path));
    return places;
}

} // namespace

JunkPlaces macJunkPlaces(const FileURL& home)
{
    const FileURL library = home.appendingNative("Library");
    JunkPlaces places;
    places.caches = below(library, {"Caches"});
    places.logs = below(library, {"Logs"});
    places.developer =
        below(library, {"Developer/Xcode/DerivedData", "Developer/Xcode/Archives",
                        "Developer/Xcode/iOS DeviceSupport", "Developer/Xcode/watchOS DeviceSupport",
                        "Developer/Xcode/visionOS DeviceSupport", "Developer/CoreSimulator/Caches"});
    places.deviceBackups = below(library, {"Application Support/MobileSync/Backup"});
    for (const FileURL& folder :
         below(library, {"Caches/com.apple.Safari", "Application Support/Google/Chrome/Default/Cache",
                         "Application Support/Google/Chrome/Default/Code Cache", "Caches/Firefox",
                         // The whole folder on purpose: no path below it holds caches alone.
                         "Application Support/Firefox/Profiles", "Caches/com.microsoft.edgemac",
                         "Application Support/BraveSoftware/Brave-Browser/Default/Cache"}))
        places.browsers.append({.folder = folder});
    places.trash = below(home, {".Trash"});
    return places;
}

QList<FileURL> macJunkEstimate(const FileURL& home)
{
    return below(home, {"Library/Caches", "Library/Logs", "Library/Developer/Xcode/DerivedData",
                        "Library/Developer/Xcode/Archives"});
}

} // namespace keelbright
