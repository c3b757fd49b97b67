#include "KeelbrightCore/platform/files/SystemCopyDestination.h"

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"
#include "KeelbrightCore/platform/files/FolderOpening.h"
#include "KeelbrightCore/platform/files/PreparedItems.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/resource.h>

namespace keelbright {

namespace {

/// Enough that a repaint of the window does not hold up the copy; none to spare where a process
/// may have few files open. A copy takes two: itself and, at worst, its folder.
qsizetype maximumPreparedCopies()
{
    constexpr rlim_t restOfTheProgram = 128;
    constexpr rlim_t maximum = 200;
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur <= restOfTheProgram)
        return 1;
    return static_cast<qsizetype>(std::clamp<rlim_t>((limit.rlim_cur - restOfTheProgram) / 4, 1, maximum));
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

/// Whether a file could not be created because its open folder has been removed. Some file systems
/// answer ENOENT then, others EPERM.
bool isRemoved(int folder, int code)
{
    struct stat status = {};
    return code == ENOENT || (code == EPERM && ::fstat(folder, &status) == 0 && status.st_nlink == 0);
}

/// Where a symbolic link leads; the `errno` value where that can't be read.
std::expected<QByteArray, int> linkTarget(int folder, QByteArrayView name)
{
    QByteArray target(256, Qt::Uninitialized);
    for (;;) {
        const ssize_t length =
            ::readlinkat(folder, name.data(), target.data(), static_cast<size_t>(target.size()));
        if (length < 0)
            return std::unexpected(errno);
        if (length < target.size()) {
            target.truncate(length);
            return target;
        }
        target.resize(target.size() * 2);
    }
}

} // namespace

std::expected<std::unique_ptr<CopyDestination>, FileError>
SystemCopyDestination::open(const FileURL& base, QByteArrayView relativeFolder)
{
    const auto open = [&] {
        return ::open(base.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
    };
    const FileDescriptor folder(retrying(open));
    if (!folder.isOpen())
        return failure(FileError::Operation::opened, base, errno);
    auto anchorFolder = openOrCreatePath(folder.get(), relativeFolder);
    if (!anchorFolder)
        return std::unexpected(anchorFolder.error());
    auto anchor = CopyAnchor::of(base.appendingNative(relativeFolder), std::move(*anchorFolder));
    if (!anchor)
        return std::unexpected(anchor.error());
    FileDescriptor chainRoot = FileDescriptor::duplicate(anchor->descriptor());
    if (!chainRoot.isOpen())
        return failure(FileError::Operation::opened, base, errno);
    return std::unique_ptr<CopyDestination>(
        new SystemCopyDestination(std::move(*anchor), std::move(chainRoot)));
}

SystemCopyDestination::SystemCopyDestination(CopyAnchor anchor, FileDescriptor chainRoot)
    : m_anchor(std::move(anchor))
    , m_chain(std::move(chainRoot))
    , m_maximumPrepared(maximumPreparedCopies())
{}

bool SystemCopyDestination::isInPlace()
{
    return m_anchor.isInPlace();
}

qsizetype SystemCopyDestination::maximumPrepared() const
{
    // Where case folds, each name is compared with those that are on the drive already.
    return m_letterCase.folds() ? 1 : m_maximumPrepared;
}

std::expected<void, FileError> SystemCopyDestination::enterFolder(QByteArrayView relativeFolder)
{
    if (auto inPlace = m_anchor.checkPlace(); !inPlace)
        return inPlace;
    if (m_chain.relativePath() == relativeFolder)
        return {};
    m_targetFolder.reset();
    while (!isAtOrBelow(relativeFolder, m_chain.relativePath())) {
        if (!m_chain.leave())
            m_chain.leaveAll(); // the folders were moved meanwhile: start at the anchor again
    }
    const qsizetype done = m_chain.relativePath().size();
    QByteArrayView rest = relativeFolder.sliced(done);
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
    if (m_letterCase.isClaimedByAnother(m_chain.descriptor(), m_chain.relativePath(), name))
        return failure(FileError::Operation::created, name, FileError::Reason::differsInCaseOnly);
    auto opened = openOrCreateFolder(m_chain.descriptor(), name);
    if (!opened)
        return std::unexpected(opened.error());
    m_chain.enter(std::move(opened->folder), name, opened->wasCreated ? NameIs::free : NameIs::taken);
    m_letterCase.learn(m_chain.descriptor(), name);
    return {};
}

std::expected<void, FileError> SystemCopyDestination::recreateFolder()
{
    // Perhaps it was the whole destination that was removed.
    if (auto inPlace = m_anchor.checkPlaceNow(); !inPlace)
        return inPlace;
    m_targetFolder.reset();
    const QByteArray folder = m_chain.relativePath();
    m_chain.leaveAll();
    return enterFolder(folder);
}

std::expected<std::shared_ptr<const TargetFolder>, int> SystemCopyDestination::targetFolder()
{
    if (m_targetFolder)
        return m_targetFolder;
    FileDescriptor folder = FileDescriptor::duplicate(m_chain.descriptor());
    if (!folder.isOpen())
        return std::unexpected(errno);
    const mode_t umask = m_attributes.umaskIn(folder.get());
    TargetFolder target{.anchor = m_anchor,
                        .path = m_chain.relativePath(),
                        .folder = std::move(folder),
                        .likelyName = m_chain.data(),
                        .umask = umask};
    m_targetFolder = std::make_shared<const TargetFolder>(std::move(target));
    return m_targetFolder;
}

SystemCopyDestination::Prepared SystemCopyDestination::prepare(const DirectoryEnumerator& item,
                                                               const Cancellation& cancellation)
{
    if (const auto inPlace = m_anchor.checkPlace(); !inPlace)
        return std::unexpected(inPlace.error());
    if (m_letterCase.isClaimedByAnother(m_chain.descriptor(), m_chain.relativePath(), item.name()))
        return failure(FileError::Operation::copied, item.name(), FileError::Reason::differsInCaseOnly);
    switch (item.type()) {
    case EntryType::regularFile:
        return prepareFile(item, cancellation);
    case EntryType::symbolicLink:
        return prepareLink(item);
    case EntryType::directory:
    case EntryType::other:
        break; // not even opened: that alone rewinds a tape, or waits for the other end of a FIFO
    }
    return notARegularFile(item.name());
}

SystemCopyDestination::Prepared SystemCopyDestination::prepareFile(const DirectoryEnumerator& item,
                                                                   const Cancellation& cancellation)
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
    const int file = target->file.descriptor();
    if (const auto copied = m_contents.copy(source.get(), file, status, cancellation, item.name()); !copied)
        return std::unexpected(copied.error());
    auto done = m_attributes.copy(source.get(), file, status, target->hasMode);
    if (done)
        done = target->file.finishWriting();
    if (!done)
        return failure(FileError::Operation::copied, item.name(), done.error());
    return std::make_unique<PreparedFile>(std::move(target->folder), std::move(target->file),
                                          item.name().toByteArray(), status.st_size);
}

std::expected<SystemCopyDestination::NewFile, FileError>
SystemCopyDestination::createFile(QByteArrayView name, const struct stat& source)
{
    auto file = tryToCreateFile(source);
    if (!file && isRemoved(m_chain.descriptor(), file.error())) {
        if (const auto entered = recreateFolder(); !entered)
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
    auto folder = targetFolder();
    if (!folder)
        return std::unexpected(folder.error());
    const int descriptor = (*folder)->folder.get();
    constexpr mode_t ownersOnly = S_IRUSR | S_IWUSR;
    if (m_hasUnnamedFiles) {
        // Nobody can open a file without a name, so it may have its permissions at once, which
        // saves a call a file.
        const bool hasMode = m_attributes.isModeSetAtCreation(source, (*folder)->umask);
        const mode_t mode = hasMode ? source.st_mode & 07777 : ownersOnly;
        auto file = UnpublishedFile::createUnnamed(descriptor, mode);
        if (file)
            return NewFile{std::move(*folder), std::move(*file), hasMode};
        if (file.error() != ENOTSUP)
            return std::unexpected(file.error());
        m_hasUnnamedFiles = false;
    }
    auto file = UnpublishedFile::createTemporary(descriptor, ownersOnly);
    if (!file)
        return std::unexpected(file.error());
    return NewFile{std::move(*folder), std::move(*file), false};
}

SystemCopyDestination::Prepared SystemCopyDestination::prepareLink(const DirectoryEnumerator& item)
{
    auto target = linkTarget(item.folderDescriptor(), item.name());
    if (!target)
        return failure(FileError::Operation::read, item.name(), target.error());
    auto folder = targetFolder();
    if (!folder)
        return failure(FileError::Operation::copied, item.name(), folder.error());
    return std::make_unique<PreparedLink>(std::move(*folder), std::move(*target), item.name().toByteArray());
}

std::expected<void, FileError> SystemCopyDestination::writeAtomically(const QByteArray& name,
                                                                      const QByteArray& data)
{
    return m_anchor.writeAtomically(name, data);
}

std::expected<void, FileError> SystemCopyDestination::flush()
{
    return m_anchor.flush();
}

} // namespace keelbright
