#pragma once

#include "KeelbrightCore/platform/files/JunkPlaces.h"

#include <QHash>
#include <QList>

namespace keelbright {

class FileManager;

/// The folders for a person's own files that every desktop knows.
enum class UserFolder { desktop, documents, pictures, downloads, movies, music };

/// Where the applications of a Mac keep files outside their bundles.
struct MacLibrary
{
    FileURL preferences;
    FileURL caches;
    FileURL applicationSupport;
    FileURL containers;
    FileURL groupContainers;
    FileURL savedStates;
    FileURL webKit;
    FileURL httpStorages;
    FileURL applicationScripts;
    FileURL launchAgents;
    FileURL systemLaunchAgents;  ///< of all users
    FileURL systemLaunchDaemons; ///< of all users
};

/// Where Linux systems keep what is known of installed packages.
struct LinuxPackages
{
    FileURL dpkgStatus;   ///< the file with all packages
    FileURL dpkgLists;    ///< a list of its files for each package
    QList<FileURL> snaps; ///< where Snaps are mounted, in one of these or in another
    FileURL snapFiles;    ///< the files that are mounted there
};

/// Where the applications of a Linux desktop keep files, each in a folder of its own name.
struct LinuxAppFolders
{
    FileURL configuration;
    FileURL data;
    FileURL state;
    FileURL caches;
    FileURL flatpaks;
};

/// Where desktops record which applications are used.
struct LinuxUsage
{
    FileURL recentFiles;    ///< of all programs that follow the desktop bookmark specification
    FileURL gnomeState;     ///< of GNOME's shell
    FileURL plasmaDatabase; ///< of KDE's activity manager
};

/// Where this machine keeps things; the only class that knows. A Mac, and a home that has a folder
/// "Library", has the places of a Mac, every other home those of the XDG specifications. Whether a place
/// exists is another question.
class MachinePlaces
{
public:
    /// Looks at the home and, where it is no Mac's, reads a small file of settings. Blocks; any thread.
    /// `files` outlives the object.
    explicit MachinePlaces(const FileManager& files);

    [[nodiscard]] bool isMac() const { return m_isMac; }

    /// The folder that the user has chosen; below the home under its English name where the user has
    /// chosen none or has switched it off.
    [[nodiscard]] FileURL userFolder(UserFolder folder) const;
    /// Whether the user wants no such folder.
    [[nodiscard]] bool isSwitchedOff(UserFolder folder) const;

    [[nodiscard]] JunkPlaces junk() const;
    /// What a quick estimate of the junk adds up, which is less than all of it; files may be among them.
    [[nodiscard]] QList<FileURL> junkEstimate() const;

    /// Where the entries of the desktop's menu and other data lie, in the order in which they are
    /// searched; empty on a Mac.
    [[nodiscard]] QList<FileURL> dataFolders() const;
    [[nodiscard]] LinuxPackages linuxPackages() const;
    [[nodiscard]] LinuxUsage linuxUsage() const;
    [[nodiscard]] LinuxAppFolders linuxAppFolders() const;
    /// The folders in the home in which people keep AppImages; empty on a Mac.
    [[nodiscard]] QList<FileURL> appImageFolders() const;

    /// The folders in which bundles of applications lie, in the order in which they are searched; empty
    /// where there are none.
    [[nodiscard]] QList<FileURL> bundleFolders() const;
    /// The one whose applications all users have; first in `bundleFolders`.
    [[nodiscard]] FileURL sharedBundleFolder() const;
    [[nodiscard]] MacLibrary macLibrary() const;
    /// The tool that a Mac's metadata index is asked with.
    [[nodiscard]] static FileURL metadataTool(const FileManager& files);

    /// The folders below which drives for people are mounted, at any depth. Reads nothing.
    [[nodiscard]] static QList<FileURL> volumeFolders(const FileManager& files);
    /// The same without other users' drives: of "/media" and "/run/media" the user's own folder there. Reads
    /// nothing.
    [[nodiscard]] static QList<FileURL> ownVolumeFolders(const FileManager& files);
    /// The folders of those in which a desktop makes a folder for each drive of the user that it mounts.
    /// Reads nothing.
    [[nodiscard]] static QList<FileURL> desktopVolumeFolders(const FileManager& files);

    /// What is never a source of a backup.
    [[nodiscard]] QList<FileURL> systemFolders() const;

private:
    [[nodiscard]] FileURL inLibrary(const char* name) const;

    const FileManager& m_files;
    FileURL m_home;
    bool m_isMac = false;
    QHash<QByteArray, FileURL> m_userFolders; ///< as the desktop's settings have them
};

} // namespace keelbright
