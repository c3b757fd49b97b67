#include "KeelbrightCore/platform/system/FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <utility>

namespace keelbright {

namespace {

FolderLock::Outcome lock(const FileDescriptor& place)
{
    if (place.isOpen() && retrying([&] { return ::flock(place.get(), LOCK_EX | LOCK_NB); }) == 0)
        return FolderLock::Outcome::taken;
    return place.isOpen() && errno == EWOULDBLOCK ? FolderLock::Outcome::heldElsewhere
                                                  : FolderLock::Outcome::unavailable;
}

} // namespace

FolderLock::FolderLock(FileURL folder)
    : m_folder(std::move(folder))
{}

FolderLock::Outcome FolderLock::tryToTake()
{
    FileDescriptor folder(::open(m_folder.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    Outcome outcome = lock(folder);
    if (outcome == Outcome::unavailable && folder.isOpen()) {
        folder =
            FileDescriptor(::openat(folder.get(), "lock", O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
        outcome = lock(folder);
    }
    if (outcome == Outcome::taken)
        m_descriptor = std::move(folder);
    return outcome;
}

} // namespace keelbright
