#pragma once

#include "tests/support/MadeUpFiles.h"

namespace keelbright::testing {

/// The machine of one Mira, after years of use: a home, a Library, applications, a backup drive.
/// Big files are holes, so that sizes are believable and the whole takes a few megabytes.
class MadeUpMac
{
public:
    /// Home is `<root>/Users/mira`, as `SandboxFileManager` has it.
    explicit MadeUpMac(const FileURL& root, const QDateTime& now = QDateTime::currentDateTimeUtc());

    void populate() const;

    // The parts of `populate`.
    /// Desktop, Documents, Pictures, Downloads, Movies and Music, with what a backup leaves out.
    void addPersonalFiles() const;
    /// Caches, logs, leftovers of applications and of developing, the Trash.
    void addLibrary() const;
    /// "/Applications", its Utilities, the home's own, and the metadata tool.
    void addApplications() const;
    /// "/Volumes/Backup Drive", an empty folder.
    void addBackupDrive() const;

    [[nodiscard]] FileURL home() const { return m_files.at("Users/mira"); }

    [[nodiscard]] FileURL backupDrive() const { return m_files.at("Volumes/Backup Drive"); }

private:
    MadeUpFiles m_files;
};

} // namespace keelbright::testing
