#include "KeelbrightCore/platform/files/SystemFileManager.h"

#include "KeelbrightCore/platform/files/AtomicWrite.h"
#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/MachineRules.h"
#include "KeelbrightCore/platform/files/MountPoints.h"
#include "KeelbrightCore/platform/files/MountedVolumes.h"
#include "KeelbrightCore/platform/files/ProtectedPlaces.h"
#include "KeelbrightCore/platform/files/ResolvedPath.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/SystemCopyDestination.h"
#include "KeelbrightCore/platform/files/SystemTrash.h"
#include "KeelbrightCore/platform/files/Trash.h"
#include "KeelbrightCore/platform/files/VolumeCapacity.h"
#include "KeelbrightCore/platform/text/UtcZone.h"

#include <array>
#include <fcntl.h>
#include <new>
#include <pwd.h>
#include <sys/stat.h>
#include <tuple>

namespace keelbright {

namespace {

bool isAccessible(const FileURL& url, int mode)
{
    return ::faccessat(AT_FDCWD, url.nativePath().constData(), mode, AT_EACCESS) == 0;
}

/// Creates one folder; one that is there already is fine, a file in its place is not.
std::expected<void, FileError> createOneDirectory(const FileURL& url)
{
    if (::mkdir(url.nativePath().constData(), 0777) == 0)
        return {};
    const int code = errno;
    struct stat status = {};
    if (::stat(url.nativePath().constData(), &status) != 0)
        return failure(FileError::Operation::created, url, code);
    if (!S_ISDIR(status.st_mode))
        return failure(FileError::Operation::created, url, ENOTDIR);
    return {};
}

/// The home that the user database names; empty where it knows none.
QByteArray homeInUserDatabase()
{
    std::array<char, 16384> buffer = {};
    passwd entry = {};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || found == nullptr)
        return {};
    return found->pw_dir;
}

/// All bytes of an open file, but few more than the maximum; or an `errno` value.
std::expected<QByteArray, int> readUpTo(qint64 maximumSize, const FileDescriptor& file, qint64 expectedSize)
try {
    constexpr qsizetype piece = qsizetype{64} * 1024;
    QByteArray data;
    data.reserve(expectedSize);
    while (data.size() <= maximumSize) {
        const qsizetype size = data.size();
        data.resize(size + piece);
        const ssize_t got = retrying([&] { return ::read(file.get(), data.data() + size, piece); });
        if (got < 0)
            return std::unexpected(errno);
        data.resize(size + got);
        if (got == 0)
            break;
    }
    return data;
} catch (const std::bad_alloc&) {
    return std::unexpected(ENOMEM);
}

} // namespace

FileExistence SystemFileManager::fileExists(const FileURL& url) const
{
    struct stat status = {};
    if (::stat(url.nativePath().constData(), &status) != 0)
        return {};
    return {.exists = true, .isDirectory = S_ISDIR(status.st_mode)};
}

bool SystemFileManager::isReadable(const FileURL& url) const
{
    return isAccessible(url, R_OK);
}

bool SystemFileManager::isWritable(const FileURL& url) const
{
    return isAccessible(url, W_OK);
}

bool SystemFileManager::isExecutable(const FileURL& url) const
{
    struct stat status = {};
    return ::stat(url.nativePath().constData(), &status) == 0 && S_ISREG(status.st_mode) &&
           isAccessible(url, X_OK);
}

std::optional<QDateTime> SystemFileManager::modificationDate(const FileURL& url) const
{
    struct stat status = {};
    if (::stat(url.nativePath().constData(), &status) != 0)
        return std::nullopt;
    return QDateTime::fromSecsSinceEpoch(status.st_mtime, utcZone);
}

std::optional<QByteArray> SystemFileManager::beginning(const FileURL& url, qsizetype bytes) const
{
    const FileDescriptor file(retrying(
        [&] { return ::open(url.nativePath().constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    QByteArray data(bytes, Qt::Uninitialized);
    const ssize_t got = retrying([&] { return ::read(file.get(), data.data(), static_cast<size_t>(bytes)); });
    if (got < 0)
        return std::nullopt;
    data.truncate(got);
    return data;
}

std::optional<qint64> SystemFileManager::fileSize(const FileURL& url) const
{
    struct stat status = {};
    if (::lstat(url.nativePath().constData(), &status) != 0 || S_ISDIR(status.st_mode))
        return std::nullopt;
    return status.st_size;
}

FileURL SystemFileManager::resolvingSymlinks(const FileURL& url) const
{
    return resolvedPath(url);
}

std::optional<PlaceOnVolume> SystemFileManager::placeOnVolume(const FileURL& url) const
{
    return keelbright::placeOnVolume(url);
}

std::expected<FileSystemCapacity, FileError> SystemFileManager::fileSystemCapacity(const FileURL& url) const
{
    const auto capacity = volumeCapacity(url);
    if (!capacity)
        return failure(FileError::Operation::measured, url, capacity.error());
    return *capacity;
}

std::expected<QList<DirectoryEntry>, FileError>
SystemFileManager::contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const
{
    auto walk = DirectoryEnumerator::open(url, options | DirectoryEnumerator::Option::followsRootLink);
    if (!walk)
        return std::unexpected(walk.error());
    std::optional<FileError> breakOff;
    (*walk)->setErrorHandler([&breakOff](const FileURL&, const FileError& error) {
        if (error.operation == FileError::Operation::listed)
            breakOff = error;
    });
    QList<DirectoryEntry> entries;
    while ((*walk)->next()) {
        (*walk)->skipDescendants();
        entries.append({(*walk)->url(), (*walk)->type(), (*walk)->fileSize()});
    }
    if (breakOff)
        return std::unexpected(*breakOff);
    return entries;
}

std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
SystemFileManager::enumerator(const FileURL& url, DirectoryEnumerator::Options options) const
{
    return DirectoryEnumerator::open(url, options);
}

std::expected<void, FileError> SystemFileManager::createDirectory(const FileURL& url)
{
    const QByteArray& path = url.nativePath();
    // Only what is missing is created: a parent that exists may be neither listable nor writable.
    QList<FileURL> missing;
    for (FileURL folder = url; folder != FileURL() && !fileExists(folder).exists;
         folder = folder.deletingLastPathComponent())
        missing.prepend(folder);
    if (missing.isEmpty())
        return path == "/" ? std::expected<void, FileError>() : createOneDirectory(url);
    for (const FileURL& folder : missing) {
        if (auto created = createOneDirectory(folder); !created)
            return created;
    }
    return {};
}

std::expected<std::unique_ptr<CopyDestination>, FileError>
SystemFileManager::openCopyDestination(const FileURL& base, QByteArrayView relativeFolder)
{
    return SystemCopyDestination::open(base, relativeFolder);
}

std::expected<void, FileError> SystemFileManager::moveItem(const FileURL& source, const FileURL& target)
{
    const auto moved = SystemCalls::renameWithoutReplacing(AT_FDCWD, source.nativePath().constData(),
                                                           AT_FDCWD, target.nativePath().constData());
    if (!moved)
        return failure(FileError::Operation::moved, source, moved.error());
    return {};
}

std::expected<TrashedItem, FileError> SystemFileManager::trashItem(const FileURL& url)
{
    return Trash::moveToTrash(url, homeTrashOf(*this), ProtectedPlaces::of(*this));
}

std::expected<void, FileError> SystemFileManager::restoreItem(const TrashedItem& item)
{
    const FileURL folder = item.origin.deletingLastPathComponent();
    if (!fileExists(folder).exists) {
        // No folder is made for an item that is gone.
        if (auto there = Trash::checkIsThere(item); !there)
            return there;
        if (auto made = createDirectory(folder); !made)
            return made;
    }
    return Trash::putBack(item);
}

std::expected<void, FileError> SystemFileManager::removeEmptyFolder(const FileURL& folder)
{
    if (::rmdir(folder.nativePath().constData()) != 0)
        return failure(FileError::Operation::removed, folder, errno);
    return {};
}

std::expected<void, FileError> SystemFileManager::linkItem(const FileURL& item, const FileURL& secondName)
{
    if (::linkat(AT_FDCWD, item.nativePath().constData(), AT_FDCWD, secondName.nativePath().constData(),
                 AT_SYMLINK_FOLLOW) != 0)
        return failure(FileError::Operation::copied, item, errno);
    const FileDescriptor folder(::open(secondName.deletingLastPathComponent().nativePath().constData(),
                                       O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        std::ignore = ::fsync(folder.get()); // some file systems can't flush a folder
    return {};
}

std::expected<void, FileError> SystemFileManager::removeOwnFile(const FileURL& file)
{
    if (::unlink(file.nativePath().constData()) != 0 && errno != ENOENT)
        return failure(FileError::Operation::removed, file, errno);
    return {};
}

std::expected<QByteArray, FileError> SystemFileManager::contents(const FileURL& url, qint64 maximumSize) const
{
    const FileDescriptor file(retrying(
        [&] { return ::open(url.nativePath().constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0)
        return failure(FileError::Operation::read, url, errno);
    if (!S_ISREG(status.st_mode))
        return failure(FileError::Operation::read, url, FileError::Reason::notARegularFile);
    if (status.st_size > maximumSize)
        return failure(FileError::Operation::read, url, FileError::Reason::tooLarge);
    const auto data = readUpTo(maximumSize, file, status.st_size);
    if (!data)
        return failure(FileError::Operation::read, url, data.error());
    // Some files hold more than their size says.
    if (data->size() > maximumSize)
        return failure(FileError::Operation::read, url, FileError::Reason::tooLarge);
    return *data;
}

std::expected<void, FileError> SystemFileManager::writeAtomically(const FileURL& url, const QByteArray& data)
{
    return atomicWrite(url, data);
}

std::expected<void, FileError> SystemFileManager::writePiecesAtomically(const FileURL& url,
                                                                        const NextPiece& nextPiece)
{
    return atomicWrite(url, nextPiece);
}

QList<MountedVolume> SystemFileManager::mountedVolumes() const
{
    return volumesAmong(deviceMounts(), *this);
}

QList<FileURL> SystemFileManager::volumeTops() const
{
    return topsAmong(deviceMounts());
}

bool SystemFileManager::isMac() const
{
    return MachineRules::isMac();
}

FileURL SystemFileManager::homeDirectory() const
{
    const QByteArray home = qgetenv("HOME");
    return FileURL::fromNativePath(home.startsWith('/') ? home : homeInUserDatabase());
}

FileURL SystemFileManager::applicationSupportDirectory() const
{
    return MachineRules::applicationSupport(*this);
}

FileURL SystemFileManager::systemLocation(const QString& absolutePath) const
{
    return FileURL::fromPath(absolutePath);
}

} // namespace keelbright
