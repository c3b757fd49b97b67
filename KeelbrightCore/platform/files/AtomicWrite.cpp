#include "KeelbrightCore/platform/files/AtomicWrite.h"

#include "KeelbrightCore/platform/files/UnpublishedFile.h"

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
    const FileURL parent = url.deletingLastPathComponent();
    const FileDescriptor folder(retrying(
        [&] { return ::open(parent.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder.isOpen())
        return failure(FileError::Operation::written, url, errno);
    return atomicWrite(folder.get(), url.nativeLastPathComponent(), data);
}

} // namespace keelbright
