#include "KeelbrightCore/platform/SystemCopyDestination.h"

#include "KeelbrightCore/platform/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/PreparedItems.h"
#include "KeelbrightCore/platform/SystemCalls.h"
#include "KeelbrightCore/platform/TemporaryName.h"

#include <array>
#include <fcntl.h>
#include <tuple>

namespace keelbright {

namespace {

constexpr auto placeCheckInterval = std::chrono::milliseconds(50);

FileError failure(FileError::Operation operation, QByteArrayView name, int code)
{
    return FileError::fromCode(operation, QString::fromUtf8(name), code);
}

FileError notARegularFile(QByteArrayView name)
{
    return {FileError::Operation::copied, QString::fromUtf8(name), FileError::Reason::notARegularFile};
}

/// The part of `path` up to its next slash; `path` becomes what follows.
QByteArrayView takeComponent(QByteArrayView& path)
{
    const qsizetype slash = path.indexOf('/');
    const QByteArrayView component = slash < 0 ? path : path.first(slash);
    path = slash < 0 ? QByteArrayView() : path.sliced(slash + 1);
    return component;
}

/// Whether `path` is `folder` itself or lies below it.
bool isAtOrBelow(QByteArrayView path, QByteArrayView folder)
{
    return folder.isEmpty() ||
           (path.startsWith(folder) && (path.size() == folder.size() || path[folder.size()] == '/'));
}

int openSource(const DirectoryEnumerator& item)
{
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const auto open = [&] { return ::openat(item.folderDescriptor(), item.name().data(), flags); };
    const int file = retrying(open);
    // A network drive that lost its handle finds the file again by its name.
    return file < 0 && errno == ESTALE ? retrying(open) : file;
}

/// Whether a file could not be created because its open folder has been removed. Some file
/// systems say "does not exist" to that, others "not permitted".
bool isRemoved(int folder, int code)
{
    struct stat status = {};
    return code == ENOENT || (code == EPERM && ::fstat(folder, &status) == 0 && status.st_nlink == 0);
}

/// What the drive can't hold (FAT knows no modes) is no failure of the copy; what it fails to
/// hold is.
bool isBeyondTheDrive(int code)
{
    return code == EPERM || code == EACCES || code == EINVAL || code == ENOSYS || code == EOPNOTSUPP;
}

} // namespace

std::expected<std::unique_ptr<CopyDestination>, FileError>
SystemCopyDestination::open(const FileURL& base, QByteArrayView relativeFolder)
{
    const auto open = [&] {
        return ::open(base.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
    };
    FileDescriptor folder(retrying(open));
    struct stat identity = {};
    if (!folder.isOpen() || ::fstat(folder.get(), &identity) != 0)
        return std::unexpected(failure(FileError::Operation::opened, base.nativeLastPathComponent(), errno));
    if (relativeFolder.isEmpty())
        return std::unique_ptr<CopyDestination>(new SystemCopyDestination(base, std::move(folder), identity));

    SystemCopyDestination top(base, std::move(folder), identity);
    if (const auto entered = top.enterFolder(relativeFolder); !entered)
        return std::unexpected(entered.error());
    FileDescriptor anchor(::fcntl(top.m_chain.descriptor(), F_DUPFD_CLOEXEC, 0));
    if (!anchor.isOpen() || ::fstat(anchor.get(), &identity) != 0)
        return std::unexpected(failure(FileError::Operation::opened, relativeFolder, errno));
    return std::unique_ptr<CopyDestination>(
        new SystemCopyDestination(base.appendingNative(relativeFolder), std::move(anchor), identity));
}

SystemCopyDestination::SystemCopyDestination(FileURL anchor, FileDescriptor folder,
                                             const struct stat& identity)
    : m_anchor(std::move(anchor))
    , m_device(identity.st_dev)
    , m_inode(identity.st_ino)
    , m_user(::geteuid())
    , m_group(::getegid())
    , m_flushDescriptor(::openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    , m_chain(std::move(folder))
{}

bool SystemCopyDestination::wasInPlaceJustNow()
{
    return (m_lastSeenInPlace &&
            std::chrono::steady_clock::now() - *m_lastSeenInPlace < placeCheckInterval) ||
           isInPlace();
}

bool SystemCopyDestination::isInPlace()
{
    const auto now = std::chrono::steady_clock::now();
    struct stat status = {};
    if (::stat(m_anchor.nativePath().constData(), &status) != 0 || status.st_dev != m_device ||
        status.st_ino != m_inode) {
        m_lastSeenInPlace.reset();
        return false;
    }
    m_lastSeenInPlace = now;
    return true;
}

FileError SystemCopyDestination::goneError() const
{
    return {FileError::Operation::copied, m_anchor.lastPathComponent(), FileError::Reason::destinationGone};
}

std::expected<void, FileError> SystemCopyDestination::enterFolder(QByteArrayView relativeFolder)
{
    if (!wasInPlaceJustNow())
        return std::unexpected(goneError());
    if (m_chain.relativePath() == relativeFolder)
        return {};
    while (!isAtOrBelow(relativeFolder, m_chain.relativePath())) {
        if (!m_chain.leave())
            m_chain.leaveAll(); // the folders were moved about meanwhile: begin at the anchor
    }
    const qsizetype done = m_chain.relativePath().size();
    QByteArrayView rest = relativeFolder.sliced(done);
    if (done > 0 && !rest.isEmpty())
        rest = rest.sliced(1);
    while (!rest.isEmpty()) {
        const QByteArray name = takeComponent(rest).toByteArray();
        if (name.isEmpty())
            continue;
        if (const auto entered = enterOrCreate(name); !entered)
            return entered;
    }
    return {};
}

std::expected<void, FileError> SystemCopyDestination::enterOrCreate(const QByteArray& name)
{
    if (m_letterCase.isClaimedByAnother(m_chain.descriptor(), m_chain.relativePath(), name)) {
        return std::unexpected(FileError{FileError::Operation::created, QString::fromUtf8(name),
                                         FileError::Reason::differsInCaseOnly});
    }
    auto entered = m_chain.enter(name);
    if (!entered && entered.error() == ENOENT) {
        if (::mkdirat(m_chain.descriptor(), name.constData(), 0777) != 0 && errno != EEXIST)
            return std::unexpected(failure(FileError::Operation::created, name, errno));
        entered = m_chain.enter(name);
    }
    if (entered) {
        m_letterCase.learn(m_chain.descriptor(), name);
        return {};
    }
    struct stat status = {};
    const bool isLink =
        ::fstatat(m_chain.descriptor(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
        S_ISLNK(status.st_mode);
    if (!isLink)
        return std::unexpected(failure(FileError::Operation::created, name, entered.error()));
    return std::unexpected(FileError{FileError::Operation::created, QString::fromUtf8(name),
                                     FileError::Reason::symbolicLinkInTheWay});
}

std::expected<int, FileError> SystemCopyDestination::reenterFolder()
{
    m_lastSeenInPlace.reset(); // perhaps it was the whole destination
    const QByteArray folder = m_chain.relativePath();
    m_chain.leaveAll();
    if (const auto entered = enterFolder(folder); !entered)
        return std::unexpected(entered.error());
    return m_chain.descriptor();
}

SystemCopyDestination::Prepared SystemCopyDestination::prepare(const DirectoryEnumerator& item,
                                                               const std::atomic<bool>& stop)
{
    if (!wasInPlaceJustNow())
        return std::unexpected(goneError());
    if (m_letterCase.isClaimedByAnother(m_chain.descriptor(), m_chain.relativePath(), item.name())) {
        return std::unexpected(FileError{FileError::Operation::copied, QString::fromUtf8(item.name()),
                                         FileError::Reason::differsInCaseOnly});
    }
    switch (item.type()) {
    case EntryType::regularFile:
        return prepareFile(item, stop);
    case EntryType::symbolicLink:
        return prepareLink(item);
    case EntryType::directory:
    case EntryType::other:
        break; // not even opened: that alone rewinds a tape, or waits for the other end of a FIFO
    }
    return std::unexpected(notARegularFile(item.name()));
}

SystemCopyDestination::Prepared SystemCopyDestination::prepareFile(const DirectoryEnumerator& item,
                                                                   const std::atomic<bool>& stop)
{
    const FileDescriptor source(openSource(item));
    if (!source.isOpen() && errno == ELOOP)
        return prepareLink(item); // swapped for a link since it was listed
    if (!source.isOpen() && errno == ENXIO)
        return std::unexpected(notARegularFile(item.name()));
    struct stat status = {};
    if (!source.isOpen() || ::fstat(source.get(), &status) != 0)
        return std::unexpected(failure(FileError::Operation::read, item.name(), errno));
    if (!S_ISREG(status.st_mode))
        return std::unexpected(notARegularFile(item.name()));

    const QString name = QString::fromUtf8(item.name());
    QByteArray temporaryName;
    auto target = createFile(temporaryName, name);
    if (!target)
        return std::unexpected(target.error());
    const int file = target->get();
    auto prepared = std::make_unique<PreparedFile>(
        m_chain.descriptor(), [this] { return reenterFolder(); }, std::move(*target), temporaryName,
        item.name().toByteArray());
    if (const auto copied = m_contents.copy(source.get(), file, status, stop, name); !copied)
        return std::unexpected(copied.error());
    if (const int code = copyAttributes(source.get(), file, status))
        return std::unexpected(failure(FileError::Operation::copied, item.name(), code));
    prepared->setSourceSize(status.st_size);
    return prepared;
}

std::expected<FileDescriptor, FileError> SystemCopyDestination::createFile(QByteArray& temporaryName,
                                                                           const QString& name)
{
    const auto create = [&]() -> std::expected<FileDescriptor, int> {
        if (m_hasUnnamedFiles) {
            auto file = SystemCalls::openUnnamed(m_chain.descriptor());
            if (file || file.error() != ENOTSUP)
                return file;
            m_hasUnnamedFiles = false;
        }
        temporaryName = keelbright::temporaryName();
        constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        FileDescriptor file(retrying([&] {
            return ::openat(m_chain.descriptor(), temporaryName.constData(), flags, S_IRUSR | S_IWUSR);
        }));
        if (file.isOpen())
            return file;
        return std::unexpected(errno);
    };
    auto file = create();
    // Somebody removed the folder under our hands: make it anew, once.
    if (!file && isRemoved(m_chain.descriptor(), file.error())) {
        if (const auto entered = reenterFolder(); !entered)
            return std::unexpected(entered.error());
        file = create();
    }
    if (!file)
        return std::unexpected(FileError::fromCode(FileError::Operation::copied, name, file.error()));
    return std::move(*file);
}

int SystemCopyDestination::copyAttributes(int source, int target, const struct stat& status) const
{
    mode_t mode = status.st_mode & 07777;
    if (status.st_uid != m_user || status.st_gid != m_group) {
        if (::fchown(target, status.st_uid, status.st_gid) != 0) {
            std::ignore = ::fchown(target, static_cast<uid_t>(-1), status.st_gid);
            mode &= 0777U; // never lend a foreign owner's rights to the user's own copy
        }
    }
    SystemCalls::copyExtendedAttributes(source, target);
    if (::fchmod(target, mode) != 0 && !isBeyondTheDrive(errno))
        return errno;
    const std::array<timespec, 2> times = {SystemCalls::accessTime(status),
                                           SystemCalls::modificationTime(status)};
    return ::futimens(target, times.data()) == 0 || isBeyondTheDrive(errno) ? 0 : errno;
}

SystemCopyDestination::Prepared SystemCopyDestination::prepareLink(const DirectoryEnumerator& item)
{
    QByteArray target(256, Qt::Uninitialized);
    for (;;) {
        const ssize_t length = ::readlinkat(item.folderDescriptor(), item.name().data(), target.data(),
                                            static_cast<size_t>(target.size()));
        if (length < 0)
            return std::unexpected(failure(FileError::Operation::read, item.name(), errno));
        if (length < target.size()) {
            target.truncate(length);
            break;
        }
        target.resize(target.size() * 2);
    }
    return std::make_unique<PreparedLink>(m_chain.descriptor(), std::move(target), item.name().toByteArray());
}

std::expected<void, FileError> SystemCopyDestination::flush()
{
    const auto flushed = SystemCalls::flushFileSystem(m_flushDescriptor.get());
    if (!flushed)
        return std::unexpected(
            failure(FileError::Operation::flushed, m_anchor.nativeLastPathComponent(), flushed.error()));
    return {};
}

} // namespace keelbright
