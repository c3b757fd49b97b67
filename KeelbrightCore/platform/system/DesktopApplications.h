#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/formats/DesktopEntry.h"

#include <QList>

namespace keelbright {

class FileManager;

/// An application in the desktop's menu.
struct DesktopApplication
{
    QString id; ///< of its entry, without ".desktop": "org.gnome.Nautilus"
    FileURL file;
    FileURL dataFolder; ///< the folder of data below which the entry lies
    DesktopEntry entry;
};

/// The applications that the desktop's menu shows, in the order of the data folders: of several entries
/// with one id the first one counts, also where it only hides the others. Empty on a Mac. Reads every
/// entry; blocks, any thread.
[[nodiscard]] QList<DesktopApplication> desktopApplications(const FileManager& files);

} // namespace keelbright
