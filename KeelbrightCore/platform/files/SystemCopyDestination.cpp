#include "KeelbrightCore/platform/files/SystemCopyDestination.h"

#include "KeelbrightCore/platform/files/AtomicWrite.h"
#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/files/FolderMaking.h"
#include "KeelbrightCore/platform/files/PreparedItems.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/TemporaryName.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/resource.h>
#include <tuple>

namespace keelbright {

namespace {

constexpr auto placeCheckInterval = std::chrono::milliseconds(50);

/// Enough that a repaint of the window does not hold up the copy; none to spare where a process
/// may have few files open. A copy takes two: itself and, at worst, its folder.
qsizetype mostPreparedCopies()
{
    constexpr rlim_t ofTheProgram = 128;
    constexpr rlim_t most = 200;
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur <= ofTheProgram)
        return 1;
    return static_cast<qsizetype>(std::clamp<rlim_t>((limit.rlim_cur - ofTheProgram) / 4, 1, most));
}

std::unexpected<FileError> notARegularFile(QByteArrayView name)
{
    return failure(FileError::Operation::copied, name, FileError::Reason::notARegularFile);
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
        return failure(FileError::Operation::opened, base, errno);
    auto top = anchoredAt(base, std::move(folder), identity);
    if (!top)
        return std::unexpected(top.error());
    if (relativeFolder.isEmpty())
        return std::move(*top);

    if (const auto entered = (*top)->enterFolder(relativeFolder); !entered)
        return std::unexpected(entered.error());
    FileDescriptor anchor = FileDescriptor::duplicate((*top)->m_chain.descriptor());
    if (!anchor.isOpen() || ::fstat(anchor.get(), &identity) != 0)
        return failure(FileError::Operation::opened, relativeFolder, errno);
    return anchoredAt(base.appendingNative(relativeFolder), std::move(anchor), identity);
}

std::expected<std::unique_ptr<SystemCopyDestination>, FileError>
SystemCopyDestination::anchoredAt(const FileURL& anchor, FileDescriptor folder, const struct stat& identity)
{
    FileDescriptor own(
        retrying([&] { return ::openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    // Without it the run could neither write its records nor hear of what never reached the drive.
    if (!own.isOpen())
        return failure(FileError::Operation::opened, anchor, errno);
    return std::unique_ptr<SystemCopyDestination>(
        new SystemCopyDestination(anchor, std::move(folder), std::move(own), identity));
}

SystemCopyDestination::SystemCopyDestination(FileURL anchor, FileDescriptor folder,
                                             FileDescriptor anchorFolder, const struct stat& identity)
    : m_anchor(std::move(anchor))
    , m_device(identity.st_dev)
    , m_inode(identity.st_ino)
    , m_user(::geteuid())
    , m_group(::getegid())
    , m_withheldPermissions(SystemCalls::withheldPermissions())
    , m_anchorFolder(std::move(anchorFolder))
    , m_chain(std::move(folder))
    , m_mostPrepared(mostPreparedCopies())
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

qsizetype SystemCopyDestination::mostPrepared() const
{
    // Where case folds, what is there already decides about the next name.
    return m_letterCase.folds() ? 1 : m_mostPrepared;
}

std::expected<void, FileError> SystemCopyDestination::checkPlace()
{
    if (wasInPlaceJustNow())
        return {};
    return failure(FileError::Operation::copied, m_anchor, FileError::Reason::destinationGone);
}

std::expected<void, FileError> SystemCopyDestination::enterFolder(QByteArrayView relativeFolder)
{
    if (auto inPlace = checkPlace(); !inPlace)
        return inPlace;
    if (m_chain.relativePath() == relativeFolder)
        return {};
    m_targetFolder.reset();
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
        return failure(FileError::Operation::created, name, FileError::Reason::differsInCaseOnly);
    }
    const size_t depth = m_chain.depth();
    const auto wasMade = enterOrMake(m_chain, name);
    if (!wasMade)
        return std::unexpected(wasMade.error());
    m_wasMade.resize(depth);
    m_wasMade.push_back(*wasMade);
    m_letterCase.learn(m_chain.descriptor(), name);
    return {};
}

std::expected<std::shared_ptr<const TargetFolder>, int> SystemCopyDestination::targetFolder()
{
    if (m_targetFolder)
        return m_targetFolder;
    FileDescriptor folder = FileDescriptor::duplicate(m_chain.descriptor());
    if (!folder.isOpen())
        return std::unexpected(errno);
    const size_t depth = m_chain.depth();
    const bool wasThere = depth > 0 && depth <= m_wasMade.size() && !m_wasMade[depth - 1];
    const mode_t withheld =
        SystemCalls::hasDefaultAccessList(folder.get()) ? mode_t(0777) : m_withheldPermissions;
    TargetFolder target{.folder = std::move(folder),
                        .checkPlace = [this] { return checkPlace(); },
                        .makeAnew = [this, path = m_chain.relativePath()] { return makeAnew(path); },
                        .likelyName = wasThere ? NameIs::taken : NameIs::free,
                        .withheldPermissions = withheld};
    m_targetFolder = std::make_shared<const TargetFolder>(std::move(target));
    return m_targetFolder;
}

std::expected<FileDescriptor, FileError> SystemCopyDestination::makeAnew(const QByteArray& relativeFolder)
{
    m_lastSeenInPlace.reset(); // perhaps it was the whole destination
    if (const auto inPlace = checkPlace(); !inPlace)
        return std::unexpected(inPlace.error());
    return openOrMake(m_anchorFolder.get(), relativeFolder);
}

std::expected<void, FileError> SystemCopyDestination::reenterFolder()
{
    m_lastSeenInPlace.reset(); // perhaps it was the whole destination
    m_targetFolder.reset();
    const QByteArray folder = m_chain.relativePath();
    m_chain.leaveAll();
    return enterFolder(folder);
}

SystemCopyDestination::Prepared SystemCopyDestination::prepare(const DirectoryEnumerator& item,
                                                               const std::atomic<bool>& stop)
{
    if (const auto inPlace = checkPlace(); !inPlace)
        return std::unexpected(inPlace.error());
    if (m_letterCase.isClaimedByAnother(m_chain.descriptor(), m_chain.relativePath(), item.name())) {
        return failure(FileError::Operation::copied, item.name(), FileError::Reason::differsInCaseOnly);
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
    return notARegularFile(item.name());
}

SystemCopyDestination::Prepared SystemCopyDestination::prepareFile(const DirectoryEnumerator& item,
                                                                   const std::atomic<bool>& stop)
{
    const FileDescriptor source(openSource(item));
    if (!source.isOpen() && errno == ELOOP)
        return prepareLink(item); // swapped for a link since it was listed
    if (!source.isOpen() && errno == ENXIO)
        return notARegularFile(item.name());
    struct stat status = {};
    if (!source.isOpen() || ::fstat(source.get(), &status) != 0)
        return failure(FileError::Operation::read, item.name(), errno);
    if (!S_ISREG(status.st_mode))
        return notARegularFile(item.name());

    auto target = createFile(item.name(), status);
    if (!target)
        return std::unexpected(target.error());
    const int file = target->file.get();
    auto prepared = std::make_unique<PreparedFile>(target->folder, std::move(target->file),
                                                   target->temporaryName, item.name().toByteArray());
    if (const auto copied = m_contents.copy(source.get(), file, status, stop, item.name()); !copied)
        return std::unexpected(copied.error());
    if (const int code = copyAttributes(source.get(), file, status, target->hasMode))
        return failure(FileError::Operation::copied, item.name(), code);
    if (const int code = prepared->finishWriting())
        return failure(FileError::Operation::copied, item.name(), code);
    prepared->setSourceSize(status.st_size);
    return prepared;
}

std::expected<SystemCopyDestination::NewFile, FileError>
SystemCopyDestination::createFile(QByteArrayView name, const struct stat& source)
{
    auto file = tryToCreateFile(source);
    // Somebody removed the folder under our hands: make it anew, once.
    if (!file && isRemoved(m_chain.descriptor(), file.error())) {
        if (const auto entered = reenterFolder(); !entered)
            return std::unexpected(entered.error());
        file = tryToCreateFile(source);
    }
    if (!file)
        return failure(FileError::Operation::copied, name, file.error());
    return std::move(*file);
}

std::expected<SystemCopyDestination::NewFile, int>
SystemCopyDestination::tryToCreateFile(const struct stat& source)
{
    const auto folder = targetFolder();
    if (!folder)
        return std::unexpected(folder.error());
    constexpr mode_t ownersOnly = S_IRUSR | S_IWUSR;
    if (m_hasUnnamedFiles) {
        // Nobody can open a file without a name, so it may have its permissions at once, which
        // saves a call a file.
        const mode_t mode = source.st_mode & 07777;
        const bool getsMode = isOwn(source) && (mode & ((*folder)->withheldPermissions | ~mode_t(0777))) == 0;
        auto file = SystemCalls::openUnnamed((*folder)->folder.get(), getsMode ? mode : ownersOnly);
        if (file)
            return NewFile{*folder, std::move(*file), {}, getsMode};
        if (file.error() != ENOTSUP)
            return std::unexpected(file.error());
        m_hasUnnamedFiles = false;
    }
    QByteArray name = temporaryName();
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    FileDescriptor file(
        retrying([&] { return ::openat((*folder)->folder.get(), name.constData(), flags, ownersOnly); }));
    if (!file.isOpen())
        return std::unexpected(errno);
    return NewFile{*folder, std::move(file), std::move(name), false};
}

bool SystemCopyDestination::isOwn(const struct stat& source) const
{
    return source.st_uid == m_user && source.st_gid == m_group;
}

int SystemCopyDestination::copyAttributes(int source, int target, const struct stat& status,
                                          bool hasMode) const
{
    mode_t mode = status.st_mode & 07777;
    if (!isOwn(status)) {
        if (::fchown(target, status.st_uid, status.st_gid) != 0) {
            std::ignore = ::fchown(target, static_cast<uid_t>(-1), status.st_gid);
            mode &= 0777U; // never lend a foreign owner's rights to the user's own copy
        }
    }
    SystemCalls::copyExtendedAttributes(source, target);
    if (!hasMode && ::fchmod(target, mode) != 0 && !isBeyondTheDrive(errno))
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
            return failure(FileError::Operation::read, item.name(), errno);
        if (length < target.size()) {
            target.truncate(length);
            break;
        }
        target.resize(target.size() * 2);
    }
    auto folder = targetFolder();
    if (!folder)
        return failure(FileError::Operation::copied, item.name(), folder.error());
    return std::make_unique<PreparedLink>(std::move(*folder), std::move(target), item.name().toByteArray());
}

std::expected<void, FileError> SystemCopyDestination::writeAtomically(const QByteArray& name,
                                                                      const QByteArray& data)
{
    if (!isInPlace()) {
        return failure(FileError::Operation::written, name, FileError::Reason::destinationGone);
    }
    return atomicWrite(m_anchorFolder.get(), name, data);
}

std::expected<void, FileError> SystemCopyDestination::flush()
{
    const auto flushed = SystemCalls::flushFileSystem(m_anchorFolder.get());
    if (!flushed)
        return failure(FileError::Operation::flushed, m_anchor, flushed.error());
    return {};
}

} // namespace keelbright
