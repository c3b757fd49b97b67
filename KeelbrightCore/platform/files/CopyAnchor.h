#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/files/FolderId.h"

#include <atomic>
#include <chrono>
#include <memory>

namespace keelbright {

class DirectoryEnumerator;

/// The folder that a copy destination was opened at. Knows whether its path still leads to it: a
/// drive that was unmounted, mounted over or replaced gets nothing more. Internal to the platform
/// folder. Any thread.
class CopyAnchor
{
public:
    /// `folder` is what `place` leads to. It has to be open before the first write to the drive, so
    /// that `flush` reports every write-back error since.
    [[nodiscard]] static std::expected<std::shared_ptr<CopyAnchor>, FileError> of(FileURL place,
                                                                                  FileDescriptor folder);

    /// The open folder; stays owned here.
    [[nodiscard]] int descriptor() const { return m_folder.get(); }

    /// Asks the file system.
    [[nodiscard]] bool isInPlace();
    /// Fails where the folder has left its place. Asks the file system now and then only: a drive
    /// leaves its place rarely, files come by the thousand.
    [[nodiscard]] std::expected<void, FileError> checkPlace();
    /// The same, but asks in any case.
    [[nodiscard]] std::expected<void, FileError> checkPlaceNow();

    /// Whether the entry is the folder around this one, this one itself, `copyOfSource`, or one of their
    /// folders that is mounted in its place: the folders that a backup to here leaves out. Asks the file
    /// system.
    [[nodiscard]] bool isOwnFolder(const DirectoryEnumerator& item, const FolderId& copyOfSource) const;

    /// Opens the folder at `path` below the anchor and creates what is missing, after a look at the
    /// anchor's place.
    [[nodiscard]] std::expected<FileDescriptor, FileError> recreateFolder(const QByteArray& path);

    /// Writes a file of that name into the anchor itself, in one step and through to the drive.
    [[nodiscard]] std::expected<void, FileError> writeAtomically(const QByteArray& name,
                                                                 const QByteArray& data);
    /// Brings everything written to the file system onto the drive.
    [[nodiscard]] std::expected<void, FileError> flush() const;

private:
    CopyAnchor(FileURL place, FileDescriptor folder, const FolderId& own, const FolderId& around);

    /// Whether what is mounted at that location is the folder around or a part of it.
    [[nodiscard]] bool holdsWhatIsMountedAt(const FileURL& mountPoint) const;

    FileURL m_place;
    FileDescriptor m_folder;
    FolderId m_id;
    FolderId m_idAround;
    using Time = std::chrono::steady_clock::time_point;
    static constexpr Time never = Time::min();
    std::atomic<Time> m_lastSeenInPlace = never;
};

} // namespace keelbright
