#include "KeelbrightCore/platform/files/AtomicWrite.h"

#include "KeelbrightCore/platform/files/UnpublishedFile.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>
#include <utility>

namespace keelbright {

namespace {

void takeModeOfOldFile(int folder, const QByteArray& name, int file)
{
    struct stat old = {};
    if (::fstatat(folder, name.constData(), &old, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(old.st_mode))
        std::ignore = ::fchmod(file, old.st_mode & 07777);
}

std::unexpected<FileError> notWritten(const QByteArray& name, int code)
{
    return failure(FileError::Operation::written, name, code);
}

std::expected<void, FileError> writeAll(UnpublishedFile& file, const QByteArray& name,
                                        const NextPiece& nextPiece)
{
    for (;;) {
        const auto piece = nextPiece();
        if (!piece)
            return std::unexpected(piece.error());
        if (piece->isEmpty())
            return {};
        if (const auto written = file.write(*piece); !written)
            return notWritten(name, written.error());
    }
}

std::expected<void, FileError> replace(int folder, const QByteArray& name, const NextPiece& nextPiece)
{
    auto file = UnpublishedFile::create(folder, 0666);
    if (!file)
        return notWritten(name, file.error());
    takeModeOfOldFile(folder, name, file->descriptor());
    if (auto written = writeAll(*file, name, nextPiece); !written)
        return written;
    auto done = file->flush();
    if (done)
        done = file->finishWriting();
    if (done)
        done = file->publishReplacing(name);
    if (!done)
        return notWritten(name, done.error());
    // The new name must reach the drive too. Some file systems can't flush a folder: no failure.
    std::ignore = ::fsync(folder);
    return {};
}

/// All of the data as one piece.
NextPiece onePiece(const QByteArray& data)
{
    return [rest = data]() mutable { return std::exchange(rest, QByteArray()); };
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
    return replace(folder, name, onePiece(data));
}

std::expected<void, FileError> atomicWrite(const FileURL& url, const QByteArray& data)
{
    return atomicWrite(url, onePiece(data));
}

std::expected<void, FileError> atomicWrite(const FileURL& url, const NextPiece& nextPiece)
{
    const auto file = behindLinks(url);
    if (!file)
        return failure(FileError::Operation::written, url, file.error());
    const FileURL parent = file->deletingLastPathComponent();
    const FileDescriptor folder(retrying(
        [&] { return ::open(parent.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder.isOpen())
        return failure(FileError::Operation::written, url, errno);
    return replace(folder.get(), file->nativeLastPathComponent(), nextPiece);
}

} // namespace keelbright
