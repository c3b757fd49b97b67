#include "KeelbrightCore/platform/files/CopyAnchor.h"

#include "KeelbrightCore/platform/files/AtomicWrite.h"
#include "KeelbrightCore/platform/files/FolderOpening.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <sys/stat.h>

namespace keelbright {

namespace {

constexpr auto placeCheckInterval = std::chrono::milliseconds(50);

} // namespace

std::expected<std::shared_ptr<CopyAnchor>, FileError> CopyAnchor::of(FileURL place, FileDescriptor folder)
{
    struct stat identity = {};
    if (::fstat(folder.get(), &identity) != 0)
        return failure(FileError::Operation::opened, place, errno);
    return std::shared_ptr<CopyAnchor>(
        new CopyAnchor(std::move(place), std::move(folder), identity.st_dev, identity.st_ino));
}

CopyAnchor::CopyAnchor(FileURL place, FileDescriptor folder, dev_t device, ino_t inode)
    : m_place(std::move(place))
    , m_folder(std::move(folder))
    , m_device(device)
    , m_inode(inode)
{}

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
    return openOrCreatePath(m_folder.get(), path);
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
