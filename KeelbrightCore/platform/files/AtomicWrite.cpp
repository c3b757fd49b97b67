#include "KeelbrightCore/platform/files/AtomicWrite.h"

#include "KeelbrightCore/platform/files/UnpublishedFile.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>

namespace keelbright {

namespace {

void takeModeOfOldFile(int folder, const QByteArray& name, int file)
{
    struct stat old = {};
    if (::fstatat(folder, name.constData(), &old, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(old.st_mode))
        std::ignore = ::fchmod(file, old.st_mode & 07777);
}

std::expected<void, int> replace(int folder, const QByteArray& name, const QByteArray& data)
{
    auto file = UnpublishedFile::create(folder, 0666);
    if (!file)
        return std::unexpected(file.error());
    takeModeOfOldFile(folder, name, file->descriptor());
    auto done = file->write(data);
    if (done)
        done = file->flush();
    if (done)
        done = file->finishWriting();
    if (done)
        done = file->publishReplacing(name);
    return done;
}

/// The place to which a chain of links leads, whether there is a file or not.
std::expected<FileURL, int> behindLinks(const FileURL& url)
{
    constexpr int maximumLinks = 40; // as many as the system follows
    FileURL place = url;
    for (int followed = 0; followed <= maximumLinks; ++followed) {
        std::array<char, PATH_MAX> buffer = {};
        const ssize_t length = ::readlink(place.nativePath().constData(), buffer.data(), buffer.size());
        if (length < 0 && (errno == EINVAL || errno == ENOENT))
            return place;
        if (length < 0)
            return std::unexpected(errno);
        const QByteArray target(buffer.data(), length);
        place = target.startsWith('/') ? FileURL::fromNativePath(target)
                                       : place.deletingLastPathComponent().appendingNative(target);
    }
    return std::unexpected(ELOOP);
}

} // namespace

std::expected<void, FileError> atomicWrite(int folder, const QByteArray& name, const QByteArray& data)
{
    if (const auto replaced = replace(folder, name, data); !replaced)
        return failure(FileError::Operation::written, name, replaced.error());
    // The new name must reach the drive too. Some file systems can't flush a folder: no failure.
    std::ignore = ::fsync(folder);
    return {};
}

std::expected<void, FileError> atomicWrite(const FileURL& url, const QByteArray& data)
{
    const auto file = behindLinks(url);
    if (!file)
        return failure(FileError::Operation::written, url, file.error());
    const FileURL parent = file->deletingLastPathComponent();
    const FileDescriptor folder(retrying(
        [&] { return ::open(parent.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder.isOpen())
        return failure(FileError::Operation::written, url, errno);
    return atomicWrite(folder.get(), file->nativeLastPathComponent(), data);
}

} // namespace keelbright
