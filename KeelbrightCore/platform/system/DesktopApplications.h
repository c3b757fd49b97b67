#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/formats/DesktopEntry.h"

#include <QList>

namespace keelbright {

class FileManager;

/// An entry of the menu that an earlier one of the same id hides, unread.
struct HiddenEntry
{
    FileURL file;
    FileURL dataFolder; ///< the folder of data below which it lies
};

/// An application in the desktop's menu.
struct DesktopApplication
{
    QString id; ///< of its entry, without ".desktop": "org.gnome.Nautilus"
    FileURL file;
    FileURL dataFolder; ///< the folder of data below which the entry lies
    DesktopEntry entry;
    QList<HiddenEntry> hidden = {}; ///< in their order: what a package has, where the user has a copy of it
};

/// Whose menu shows an application.
enum class Menu { ofThisDesktop, ofAnyDesktop };

/// The applications that the desktop's menu shows, in the order of the data folders: of several entries
/// with one id the first one counts, also where it only hides the others. Empty on a Mac. Reads every
/// entry but those that are hidden; blocks, any thread.
[[nodiscard]] QList<DesktopApplication> desktopApplications(const FileManager& files,
                                                            Menu menu = Menu::ofThisDesktop);

/// Reads the entry that the application's hides; it is empty where it can't be read. Blocks; any thread.
[[nodiscard]] DesktopApplication hiddenApplication(const DesktopApplication& application,
                                                   const HiddenEntry& hidden, const FileManager& files);

/// Whether the place is in the home or in the user's folder of data, which may lie elsewhere.
[[nodiscard]] bool isUsersOwn(const FileURL& place, const FileManager& files);

} // namespace keelbright
