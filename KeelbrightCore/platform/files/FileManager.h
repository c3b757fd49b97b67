#pragma once

#include "KeelbrightCore/platform/files/AtomicWrite.h"
#include "KeelbrightCore/platform/files/CopyDestination.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/files/MountedVolume.h"
#include "KeelbrightCore/platform/files/PlaceOnVolume.h"
#include "KeelbrightCore/platform/files/TrashedItem.h"

#include <QDateTime>
#include <QList>
#include <memory>
#include <optional>

namespace keelbright {

/// Whether something exists at a path, and whether it is a folder; links are followed.
struct FileExistence
{
    bool exists = false;
    bool isDirectory = false;
};

/// Capacity of the file system that holds a path, in bytes; a value is absent when unknown.
struct FileSystemCapacity
{
    std::optional<qint64> totalBytes;
    std::optional<qint64> freeBytes; ///< what the user may still write
};

/// One entry of a folder, links not followed.
struct DirectoryEntry
{
    FileURL url;
    EntryType type = EntryType::other;
    std::optional<qint64> fileSize; ///< absent for folders and where it can't be read
};

/// Every file operation that the system needs. All calls block; all may be made from any thread.
class FileManager
{
public:
    virtual ~FileManager() = default;

    /// The real one, or the one that a `FileManagerGuard` put in its place.
    [[nodiscard]] static FileManager& defaultManager();

    [[nodiscard]] virtual FileExistence fileExists(const FileURL& url) const = 0;
    [[nodiscard]] virtual bool isReadable(const FileURL& url) const = 0;
    [[nodiscard]] virtual bool isWritable(const FileURL& url) const = 0;
    /// Whether it is a file that the user may run.
    [[nodiscard]] virtual bool isExecutable(const FileURL& url) const = 0;
    /// When the item's data was last changed, links followed, in UTC; nothing where it can't be read.
    [[nodiscard]] virtual std::optional<QDateTime> modificationDate(const FileURL& url) const = 0;
    /// The first bytes of a file, fewer where it is shorter; nothing where it can't be read.
    [[nodiscard]] virtual std::optional<QByteArray> beginning(const FileURL& url, qsizetype bytes) const = 0;
    /// The logical size in bytes of anything but a folder (of a link: of the link itself); nothing
    /// where it can't be read.
    [[nodiscard]] virtual std::optional<qint64> fileSize(const FileURL& url) const = 0;
    /// The path with every symbolic link resolved; the path itself where that fails.
    [[nodiscard]] virtual FileURL resolvingSymlinks(const FileURL& url) const = 0;
    /// Where the item lies on its own file system, whatever that is mounted as; nothing where the system
    /// does not report it.
    [[nodiscard]] virtual std::optional<PlaceOnVolume> placeOnVolume(const FileURL& url) const = 0;
    [[nodiscard]] virtual std::expected<FileSystemCapacity, FileError>
    fileSystemCapacity(const FileURL& url) const = 0;

    /// The entries of one folder, in the file system's order, with types and sizes. Fails where the
    /// listing breaks off: a part of the entries is never given for all of them.
    [[nodiscard]] virtual std::expected<QList<DirectoryEntry>, FileError>
    contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const = 0;
    [[nodiscard]] virtual std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    enumerator(const FileURL& url, DirectoryEnumerator::Options options) const = 0;

    /// Creates a folder with its intermediate folders; one that exists is fine.
    [[nodiscard]] virtual std::expected<void, FileError> createDirectory(const FileURL& url) = 0;
    /// Opens (creating what is missing) `relativeFolder` below `base` as the anchor of a copy;
    /// `base` must exist, and nothing below it is reached through a link.
    [[nodiscard]] virtual std::expected<std::unique_ptr<CopyDestination>, FileError>
    openCopyDestination(const FileURL& base, QByteArrayView relativeFolder) = 0;

    /// Moves a file or folder within its volume; fails rather than replaces, and rather than
    /// copies to another volume.
    [[nodiscard]] virtual std::expected<void, FileError> moveItem(const FileURL& source,
                                                                  const FileURL& target) = 0;
    /// Gives a file a second name on its volume and brings it onto the drive. A write to the file replaces
    /// the one and leaves the other. Fails rather than replaces, and where the volume knows one name only.
    [[nodiscard]] virtual std::expected<void, FileError> linkItem(const FileURL& item,
                                                                  const FileURL& secondName) = 0;
    /// Removes a file that the program has made for itself; one that does not exist is fine. What is the
    /// user's goes to the Trash.
    [[nodiscard]] virtual std::expected<void, FileError> removeOwnFile(const FileURL& file) = 0;
    /// Removes a folder that is empty, and fails for any other.
    [[nodiscard]] virtual std::expected<void, FileError> removeEmptyFolder(const FileURL& folder) = 0;
    /// Moves to the Trash of the item's volume, and says what `restoreItem` needs. What already lies in the
    /// Trash is refused, and so are the home, the standard folders of the home and of its Library,
    /// everything above them, and places where drives are mounted.
    [[nodiscard]] virtual std::expected<TrashedItem, FileError> trashItem(const FileURL& url) = 0;
    /// Moves an item from the Trash back to its old place, and removes its record; a folder that has gone
    /// since is made again. Fails rather than replaces, and where the item no longer lies there with its
    /// record.
    [[nodiscard]] virtual std::expected<void, FileError> restoreItem(const TrashedItem& item) = 0;

    /// Far above any file that the program writes, so that nothing read by mistake uses up the memory.
    static constexpr qint64 maximumContents = qint64{1'000'000'000};

    [[nodiscard]] std::expected<QByteArray, FileError> contents(const FileURL& url) const
    {
        return contents(url, maximumContents);
    }

    /// The whole file; one of more than `maximumSize` bytes is refused with `Reason::tooLarge`.
    [[nodiscard]] virtual std::expected<QByteArray, FileError> contents(const FileURL& url,
                                                                        qint64 maximumSize) const = 0;
    /// Replaces the file's content in one step: a crash leaves the old or the new file whole. Of a link,
    /// the file behind it is replaced.
    [[nodiscard]] virtual std::expected<void, FileError> writeAtomically(const FileURL& url,
                                                                         const QByteArray& data) = 0;
    /// The same for a content that is too long to lie in memory: `nextPiece` gives it piece by piece, an
    /// empty one at its end. Where that fails, its error is the result, and nothing is replaced.
    [[nodiscard]] virtual std::expected<void, FileError>
    writePiecesAtomically(const FileURL& url, const NextPiece& nextPiece) = 0;

    /// The drives that people have mounted, by label; none of a network. Asks none of them, so that none can
    /// keep the caller waiting.
    [[nodiscard]] virtual QList<MountedVolume> mountedVolumes() const = 0;
    /// The places of all file systems on devices of this machine, wherever they are mounted, each once; none
    /// of a network. Asks none of them either.
    [[nodiscard]] virtual QList<FileURL> volumeTops() const = 0;

    /// Whether the machine is a Mac; where things lie is asked of `MachinePlaces`.
    [[nodiscard]] virtual bool isMac() const = 0;
    [[nodiscard]] virtual FileURL homeDirectory() const = 0;
    /// The user's folder for application data; a folder of the program's own goes inside.
    [[nodiscard]] virtual FileURL applicationSupportDirectory() const = 0;
    /// Where an absolute path of the system, such as "/Applications", really lies: in a test, in a
    /// temporary folder.
    [[nodiscard]] virtual FileURL systemLocation(const QString& absolutePath) const = 0;
};

/// Puts another file manager in the default's place while it lives. Not for use while another
/// thread works with the default; guards nest like scopes.
class FileManagerGuard
{
public:
    explicit FileManagerGuard(FileManager& replacement);
    ~FileManagerGuard();
    FileManagerGuard(const FileManagerGuard&) = delete;
    FileManagerGuard& operator=(const FileManagerGuard&) = delete;

private:
    FileManager* m_previous;
};

} // namespace keelbright
