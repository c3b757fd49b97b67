#pragma once

#include "tests/support/MadeUpFiles.h"

namespace keelbright::testing {

/// The home of one Mira on a Linux desktop, `<root>/home/mira`, with what the desktop and its programs
/// write into it. Big files are holes, so that sizes are believable and the whole takes little room.
class MadeUpLinux
{
public:
    /// `windowManager` is one that is started without a desktop around it, and writes nothing itself.
    enum class Desktop { gnome, plasma, windowManager };
    enum class Language { english, german };

    MadeUpLinux(MadeUpFiles files, Desktop desktop, Language language);

    /// A home after years of use, with all of the parts below but the processes, and with caches and a Trash
    /// of believable sizes, which are holes.
    void populate() const;

    /// The folders for personal files and the list of them. A bare window manager has neither the list nor
    /// any folder that nobody has made: of its user's there are "Documents" and "Pictures".
    void addUserFolders() const;

    /// What is in these folders: documents, pictures, films, music and what was downloaded.
    void addPersonalFiles() const;
    /// What the desktop itself and its programs cache: some files and some folders.
    void addCaches() const;
    /// A Firefox and a Chromium, each as a package of the system, as a Flatpak and as a Snap, with a cache
    /// and a profile.
    void addBrowsers() const;
    /// What npm, pip, cargo, Go, ccache and Gradle have fetched and built.
    void addDeveloperCaches() const;
    /// The logs of the session and of programs, and beside them what the programs still need.
    void addLogs() const;
    /// A document and a folder in the Trash of the home.
    void addTrash() const;
    /// Firefox as a Snap, Krita as an AppImage with an entry of its own in the menu, Maps as a Flatpak, and
    /// what belongs to the desktop as packages of the system: GNOME's Files, called "Dateien" in German,
    /// Plasma's Dolphin, and beside a bare window manager a document viewer, called "Dokumentenbetrachter" in
    /// German, and GIMP. The entries have both languages.
    void addApplications() const;
    /// Tide Table, which the user has put into the menu without a package, with its program, settings, data
    /// and cache, 50 MB together.
    void addOwnApplication() const;
    /// What the desktop records of how these are used: GNOME's shell, KDE's activity manager, and beside a
    /// bare window manager only programs themselves, in the list of recent documents.
    void addUse() const;
    /// "/media/mira/Backup Drive", with the folder that every drive of ext4 has: an empty one would be what a
    /// drive has left behind.
    void addBackupDrive() const;
    /// A package in the database of dpkg, with the files that it owns and the days since it was installed.
    void addPackage(const QByteArray& name, const QByteArray& version, int kibibytes,
                    const QByteArrayList& files, int daysOld) const;
    /// What Flatpak lays out for an application: its export, its metadata and the file "deploy".
    void addFlatpak(const QByteArray& id, const QByteArray& name, const QByteArray& version, quint64 size,
                    int daysOld) const;
    /// What snapd lays out for an application.
    void addSnap(const QByteArray& instance, const QByteArray& name, const QByteArray& version,
                 int daysOld) const;
    /// A file that begins like an AppImage; the path is relative to the home.
    void addAppImage(const QByteArray& path, qint64 bytes, int daysOld) const;

    /// The processes as the kernel lists them: one of this user for each command, with its arguments.
    void addProcesses(const QList<QByteArrayList>& commands) const;

    [[nodiscard]] FileURL home() const { return m_files.at("home/mira"); }

private:
    /// Below the root, with a slash at its end. `key` is that of the list of user folders: "DOCUMENTS".
    [[nodiscard]] QByteArray userFolder(const QByteArray& key) const;
    void addYearsOfUse() const;
    void addProgramsOfDesktop() const;
    void addUseOnGnome() const;
    void addUseOnPlasma() const;
    void addUseOfDocuments() const;
    void addEntry(const QByteArray& path, const QByteArray& lines, int daysOld = 30) const;

    MadeUpFiles m_files;
    Desktop m_desktop;
    Language m_language;
};

} // namespace keelbright::testing
