#include "KeelbrightCore/platform/files/CopyAnchor.h"

#include "KeelbrightCore/platform/files/AtomicWrite.h"
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
    return std::shared_ptr<CopyAnchor>(new CopyAnchor(std::move(place), std::move(folder), own, around));
}

CopyAnchor::CopyAnchor(FileURL place, FileDescriptor folder, const struct stat& own,
                       const struct stat& around)
    : m_place(std::move(place))
    , m_folder(std::move(folder))
    , m_device(own.st_dev)
    , m_inode(own.st_ino)
    , m_deviceAround(around.st_dev)
    , m_inodeAround(around.st_ino)
{}

bool CopyAnchor::isOrHolds(const struct stat& status) const
{
    return (status.st_dev == m_device && status.st_ino == m_inode) ||
           (status.st_dev == m_deviceAround && status.st_ino == m_inodeAround);
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
    if (::stat(m_place.nativePath().constData(), &status) != 0 || status.st_dev != m_device ||
        status.st_ino != m_inode) {
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
