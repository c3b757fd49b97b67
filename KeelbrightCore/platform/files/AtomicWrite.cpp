#include "KeelbrightCore/platform/files/AtomicWrite.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/TemporaryName.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>

namespace keelbright {

namespace {

/// A file in the making; `temporary` is empty as long as it has no name.
struct NewFile
{
    FileDescriptor file;
    QByteArray temporary;
};

std::expected<NewFile, int> createFile(int folder)
{
    auto unnamed = SystemCalls::openUnnamed(folder, 0666);
    if (unnamed)
        return NewFile{std::move(*unnamed), {}};
    if (unnamed.error() != ENOTSUP)
        return std::unexpected(unnamed.error());
    QByteArray temporary = temporaryName();
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    FileDescriptor file(retrying([&] { return ::openat(folder, temporary.constData(), flags, 0666); }));
    if (!file.isOpen())
        return std::unexpected(errno);
    return NewFile{std::move(file), std::move(temporary)};
}

/// Fills the file and brings it onto the drive; the `errno` value of what failed.
std::expected<void, int> fill(int folder, int file, const QByteArray& name, const QByteArray& data)
{
    struct stat old = {};
    if (::fstatat(folder, name.constData(), &old, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(old.st_mode))
        std::ignore = ::fchmod(file, old.st_mode & 07777);
    if (const int code = writeAll(file, data.constData(), static_cast<size_t>(data.size())))
        return std::unexpected(code);
    return SystemCalls::flushData(file);
}

/// Puts the filled file in its place, by way of a temporary name where it has none yet.
std::expected<void, int> putInPlace(int folder, NewFile& file, const QByteArray& name)
{
    if (file.temporary.isEmpty()) {
        QByteArray temporary = temporaryName();
        if (auto named = SystemCalls::nameUnnamed(file.file.get(), folder, temporary.constData()); !named)
            return named;
        file.temporary = std::move(temporary);
    }
    if (::renameat(folder, file.temporary.constData(), folder, name.constData()) != 0)
        return std::unexpected(errno);
    return {};
}

} // namespace

std::expected<void, FileError> atomicWrite(int folder, const QByteArray& name, const QByteArray& data)
{
    auto file = createFile(folder);
    if (!file)
        return failure(FileError::Operation::written, name, file.error());
    auto done = fill(folder, file->file.get(), name, data);
    // Before it gets its name, the drive has to say whether all of it has arrived.
    if (done && !file->temporary.isEmpty()) {
        if (const int code = file->file.close())
            done = std::unexpected(code);
    }
    if (done)
        done = putInPlace(folder, *file, name);
    if (!done) {
        if (!file->temporary.isEmpty())
            ::unlinkat(folder, file->temporary.constData(), 0);
        return failure(FileError::Operation::written, name, done.error());
    }
    // The new name must reach the drive too. Some file systems can't flush a folder: no failure.
    std::ignore = ::fsync(folder);
    return {};
}

std::expected<void, FileError> atomicWrite(const FileURL& url, const QByteArray& data)
{
    const FileURL parent = url.deletingLastPathComponent();
    const FileDescriptor folder(retrying(
        [&] { return ::open(parent.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder.isOpen())
        return failure(FileError::Operation::written, url, errno);
    return atomicWrite(folder.get(), url.nativeLastPathComponent(), data);
}

} // namespace keelbright
