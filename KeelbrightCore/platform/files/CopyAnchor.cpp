#include "KeelbrightCore/platform/files/CopyAnchor.h"

#include "KeelbrightCore/platform/files/AtomicWrite.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/files/FolderOpening.h"
#include "KeelbrightCore/platform/files/MountPoints.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace keelbright {

namespace {

constexpr auto placeCheckInterval = std::chrono::milliseconds(50);

} // namespace

std::expected<std::shared_ptr<CopyAnchor>, FileError> CopyAnchor::of(FileURL place, FileDescriptor folder)
{
    struct stat own = {};
    struct stat around = {};
    if (::fstat(folder.get(), &own) != 0 || ::fstatat(folder.get(), "..", &around, 0) != 0)
        return failure(FileError::Operation::opened, place, errno);
    return std::shared_ptr<CopyAnchor>(
        new CopyAnchor(std::move(place), std::move(folder), FolderId::of(own), FolderId::of(around)));
}

CopyAnchor::CopyAnchor(FileURL place, FileDescriptor folder, const FolderId& own, const FolderId& around)
    : m_place(std::move(place))
    , m_folder(std::move(folder))
    , m_id(own)
    , m_idAround(around)
{}

bool CopyAnchor::isOwnFolder(const DirectoryEnumerator& item, const FolderId& copyOfSource) const
{
    const int folder = item.folderDescriptor();
    const char* name = item.name().data();
    struct stat status = {};
    if (item.type() != EntryType::directory || ::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    const FolderId id = FolderId::of(status);
    return id == m_id || id == m_idAround || id == copyOfSource ||
           (SystemCalls::isMountPoint(folder, name) && holdsWhatIsMountedAt(item.url()));
}

bool CopyAnchor::holdsWhatIsMountedAt(const FileURL& mountPoint) const
{
    const auto around = placeOnVolume(m_place.deletingLastPathComponent());
    const auto mounted = placeOnVolume(mountPoint);
    return around && mounted && isAtOrBelow(*mounted, *around);
}

bool CopyAnchor::isInPlace()
{
    const Time now = std::chrono::steady_clock::now();
    struct stat status = {};
    if (::stat(m_place.nativePath().constData(), &status) != 0 || FolderId::of(status) != m_id) {
        m_lastSeenInPlace = never;
        return false;
    }
    m_lastSeenInPlace = now;
    return true;
}

std::expected<void, FileError> CopyAnchor::checkPlace()
{
    const Time lastSeen = m_lastSeenInPlace;
    if (lastSeen != never && std::chrono::steady_clock::now() - lastSeen < placeCheckInterval)
        return {};
    return checkPlaceNow();
}

std::expected<void, FileError> CopyAnchor::checkPlaceNow()
{
    if (isInPlace())
        return {};
    return failure(FileError::Operation::copied, m_place, FileError::Reason::destinationGone);
}

std::expected<FileDescriptor, FileError> CopyAnchor::recreateFolder(const QByteArray& path)
{
    // Perhaps it was the whole destination that was removed.
    if (const auto inPlace = checkPlaceNow(); !inPlace)
        return std::unexpected(inPlace.error());
    // What permissions they had is no longer known.
    return openOrCreatePath(m_folder.get(), path, S_IRWXU);
}

std::expected<void, FileError> CopyAnchor::writeAtomically(const QByteArray& name, const QByteArray& data)
{
    if (!isInPlace())
        return failure(FileError::Operation::written, name, FileError::Reason::destinationGone);
    return atomicWrite(m_folder.get(), name, data);
}

std::expected<void, FileError> CopyAnchor::flush() const
{
    const auto flushed = SystemCalls::flushFileSystem(m_folder.get());
    if (!flushed)
        return failure(FileError::Operation::flushed, m_place, flushed.error());
    return {};
}

} // namespace keelbright
