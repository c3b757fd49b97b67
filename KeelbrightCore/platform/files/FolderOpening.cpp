#include "KeelbrightCore/platform/files/FolderOpening.h"

#include "KeelbrightCore/platform/files/ReadingCalls.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace keelbright {

FileDescriptor openFolder(int parent, const char* name, AccessTimes accessTimes)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
    if (accessTimes == AccessTimes::kept)
        return openKeepingAccessTime(parent, name, flags);
    return FileDescriptor(retrying([&] { return ::openat(parent, name, flags); }));
}

std::expected<OpenedFolder, FileError> openOrCreateFolder(int parent, const QByteArray& name, mode_t mode)
{
    OpenedFolder opened{.folder = openFolder(parent, name.constData())};
    if (!opened.folder.isOpen() && errno == ENOENT) {
        opened.wasCreated = ::mkdirat(parent, name.constData(), mode) == 0;
        if (!opened.wasCreated && errno != EEXIST)
            return failure(FileError::Operation::created, name, errno);
        opened.folder = openFolder(parent, name.constData());
    }
    if (opened.folder.isOpen())
        return opened;
    const int code = errno;
    struct stat status = {};
    const bool isLink =
        ::fstatat(parent, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode);
    if (isLink)
        return failure(FileError::Operation::created, name, FileError::Reason::symbolicLinkInTheWay);
    return failure(FileError::Operation::created, name, code);
}

std::expected<FileDescriptor, FileError> openOrCreatePath(int parent, QByteArrayView path, mode_t mode)
{
    FileDescriptor folder = FileDescriptor::duplicate(parent);
    if (!folder.isOpen())
        return failure(FileError::Operation::opened, path, errno);
    while (!path.isEmpty()) {
        const QByteArray name = takeComponent(path).toByteArray();
        if (name.isEmpty())
            continue;
        auto next = openOrCreateFolder(folder.get(), name, mode);
        if (!next)
            return std::unexpected(next.error());
        folder = std::move(next->folder);
    }
    return folder;
}

bool removeIfEmpty(int folder, const QByteArray& name)
{
    const FileDescriptor parent = openFolder(folder, "..");
    struct stat own = {};
    struct stat named = {};
    return parent.isOpen() && ::fstat(folder, &own) == 0 &&
           ::fstatat(parent.get(), name.constData(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           own.st_dev == named.st_dev && own.st_ino == named.st_ino &&
           ::unlinkat(parent.get(), name.constData(), AT_REMOVEDIR) == 0;
}

QByteArrayView takeComponent(QByteArrayView& path)
{
    const qsizetype slash = path.indexOf('/');
    const QByteArrayView component = slash < 0 ? path : path.first(slash);
    path = slash < 0 ? QByteArrayView() : path.sliced(slash + 1);
    return component;
}

bool isAtOrBelow(QByteArrayView path, QByteArrayView folder)
{
    return folder.isEmpty() ||
           (path.startsWith(folder) && (path.size() == folder.size() || path[folder.size()] == '/'));
}

} // namespace keelbright
