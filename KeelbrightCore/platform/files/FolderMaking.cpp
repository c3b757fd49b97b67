#include "KeelbrightCore/platform/files/FolderMaking.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace keelbright {

QByteArrayView takeComponent(QByteArrayView& path)
{
    const qsizetype slash = path.indexOf('/');
    const QByteArrayView component = slash < 0 ? path : path.first(slash);
    path = slash < 0 ? QByteArrayView() : path.sliced(slash + 1);
    return component;
}

std::expected<bool, FileError> enterOrMake(FolderChain& chain, const QByteArray& name)
{
    auto entered = chain.enter(name);
    bool wasMade = false;
    if (!entered && entered.error() == ENOENT) {
        wasMade = ::mkdirat(chain.descriptor(), name.constData(), 0777) == 0;
        if (!wasMade && errno != EEXIST)
            return failure(FileError::Operation::created, name, errno);
        entered = chain.enter(name);
    }
    if (entered)
        return wasMade;
    struct stat status = {};
    const bool isLink = ::fstatat(chain.descriptor(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
                        S_ISLNK(status.st_mode);
    if (!isLink)
        return failure(FileError::Operation::created, name, entered.error());
    return failure(FileError::Operation::created, name, FileError::Reason::symbolicLinkInTheWay);
}

std::expected<FileDescriptor, FileError> openOrMake(int folder, QByteArrayView path)
{
    FolderChain chain(FileDescriptor::duplicate(folder));
    QByteArrayView rest = path;
    while (!rest.isEmpty()) {
        const auto entered = enterOrMake(chain, takeComponent(rest).toByteArray());
        if (!entered)
            return std::unexpected(entered.error());
    }
    FileDescriptor opened = FileDescriptor::duplicate(chain.descriptor());
    if (!opened.isOpen())
        return failure(FileError::Operation::opened, path, errno);
    return opened;
}

} // namespace keelbright
