#include "KeelbrightCore/platform/AtomicWrite.h"

#include "KeelbrightCore/platform/FileDescriptor.h"
#include "KeelbrightCore/platform/SystemCalls.h"
#include "KeelbrightCore/platform/TemporaryName.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>

namespace keelbright {

namespace {

/// Creates and fills the temporary file; the `errno` value of what failed.
std::expected<void, int> writeTemporary(int folder, const QByteArray& temporary, const QByteArray& name,
                                        const QByteArray& data)
{
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const FileDescriptor file(retrying([&] { return ::openat(folder, temporary.constData(), flags, 0666); }));
    if (!file.isOpen())
        return std::unexpected(errno);
    struct stat old = {};
    if (::fstatat(folder, name.constData(), &old, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(old.st_mode))
        std::ignore = ::fchmod(file.get(), old.st_mode & 07777);
    qsizetype done = 0;
    while (done < data.size()) {
        const ssize_t written = retrying([&] {
            return ::write(file.get(), data.constData() + done, static_cast<size_t>(data.size() - done));
        });
        if (written < 0)
            return std::unexpected(errno);
        done += written;
    }
    return SystemCalls::flushData(file.get());
}

} // namespace

std::expected<void, FileError> atomicWrite(const FileURL& url, const QByteArray& data)
{
    const auto failure = [&](int code) {
        return std::unexpected(
            FileError::fromCode(FileError::Operation::written, url.lastPathComponent(), code));
    };
    const FileURL parent = url.deletingLastPathComponent();
    const FileDescriptor folder(retrying(
        [&] { return ::open(parent.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder.isOpen())
        return failure(errno);
    const QByteArray name = url.nativeLastPathComponent();
    const QByteArray temporary = temporaryName();
    const auto written = writeTemporary(folder.get(), temporary, name, data);
    if (!written) {
        ::unlinkat(folder.get(), temporary.constData(), 0);
        return failure(written.error());
    }
    if (::renameat(folder.get(), temporary.constData(), folder.get(), name.constData()) != 0) {
        const int code = errno;
        ::unlinkat(folder.get(), temporary.constData(), 0);
        return failure(code);
    }
    // The new name must reach the drive too. Some file systems can't flush a folder: no failure.
    std::ignore = ::fsync(folder.get());
    return {};
}

} // namespace keelbright
