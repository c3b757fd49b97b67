#include "KeelbrightCore/platform/files/SystemCopyWorker.h"

#include "KeelbrightCore/platform/files/ItemStatus.h"
#include "KeelbrightCore/platform/files/PreparedItems.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <fcntl.h>

namespace keelbright {

namespace {

std::unexpected<FileError> notARegularFile(QByteArrayView name)
{
    return failure(FileError::Operation::copied, name, FileError::Reason::notARegularFile);
}

int openSource(const PlannedCopy& plan)
{
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const auto open = [&] { return ::openat(plan.source->get(), plan.name.constData(), flags); };
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

std::expected<std::unique_ptr<PreparedCopy>, FileError> prepareLink(const PlannedCopy& plan)
{
    auto target = linkTarget(plan.source->get(), plan.name);
    if (!target)
        return failure(FileError::Operation::read, plan.name, target.error());
    return std::make_unique<PreparedLink>(plan, std::move(*target));
}

} // namespace

SystemCopyWorker::SystemCopyWorker(const CopyAttributes& attributes)
    : m_attributes(attributes)
{}

SystemCopyWorker::Prepared SystemCopyWorker::prepare(const PlannedCopy& plan,
                                                     const Cancellation& cancellation)
{
    if (const auto inPlace = plan.target->anchor->checkPlace(); !inPlace)
        return std::unexpected(inPlace.error());
    switch (plan.type) {
    case EntryType::regularFile:
        return prepareFile(plan, cancellation);
    case EntryType::symbolicLink:
        return prepareLink(plan);
    case EntryType::directory:
    case EntryType::other:
        break; // not even opened: that alone rewinds a tape, or waits for the other end of a FIFO
    }
    return notARegularFile(plan.name);
}

SystemCopyWorker::Prepared SystemCopyWorker::prepareFile(const PlannedCopy& plan,
                                                         const Cancellation& cancellation)
{
    const FileDescriptor source(openSource(plan));
    if (!source.isOpen() && errno == ELOOP)
        return prepareLink(plan); // swapped for a link since it was listed
    if (!source.isOpen() && errno == ENXIO)
        return notARegularFile(plan.name);
    struct stat status = {};
    if (!source.isOpen() || ::fstat(source.get(), &status) != 0)
        return failure(FileError::Operation::read, plan.name, errno);
    if (!S_ISREG(status.st_mode))
        return notARegularFile(plan.name);
    if (!SystemCalls::hasItsData(status))
        return failure(FileError::Operation::copied, plan.name, EDEADLK); // as every read of it would say

    auto target = createFile(plan, source.get(), status);
    if (!target)
        return std::unexpected(target.error());
    if (!target->hasData) {
        const int file = target->file.descriptor();
        const auto copied = m_contents.copy(source.get(), file, status, cancellation, plan.name);
        if (!copied)
            return std::unexpected(copied.error());
    }
    if (const auto done = finish(*target, source.get(), status, plan); !done)
        return failure(FileError::Operation::copied, plan.name, done.error());
    return std::make_unique<PreparedFile>(plan, std::move(target->newFolder), std::move(target->file),
                                          std::move(target->replaced), status.st_size, target->isReplacing);
}

std::expected<void, int> SystemCopyWorker::finish(NewFile& file, int source, const struct stat& status,
                                                  const PlannedCopy& plan)
{
    // The list that a folder gives its new files may let in more than the file's own permissions do.
    if (plan.target->umask == 0777)
        SystemCalls::removeAccessLists(file.file.descriptor());
    if (auto copied = m_attributes.copy(source, file.file.descriptor(), status, file.hasMode); !copied)
        return copied;
    if (plan.target->likelyName == NameIs::taken) {
        auto old = SystemCalls::holdFile(plan.target->folder.get(), plan.name.constData());
        file.isReplacing = old || (old.error() != ENOENT && old.error() != ENAMETOOLONG);
        if (old)
            file.replaced = std::move(*old);
    }
    if (file.isReplacing && plan.target->flushesBeforeReplacing) {
        file.file.startWriting();
        // It is closed below.
        if (!file.file.isUnnamed()) {
            if (auto written = file.file.waitUntilWritten(); !written)
                return written;
        }
    }
    return file.file.finishWriting();
}

std::expected<SystemCopyWorker::NewFile, FileError>
SystemCopyWorker::createFile(const PlannedCopy& plan, int source, const struct stat& status)
{
    const TargetFolder& target = *plan.target;
    auto file = createFileIn(target.folder.get(), target, source, status);
    if (!file && isRemoved(target.folder.get(), file.error())) {
        auto folder = target.anchor->recreateFolder(target.path);
        if (!folder)
            return std::unexpected(folder.error());
        file = createFileIn(folder->get(), target, source, status);
        if (file)
            file->newFolder = std::move(*folder);
    }
    if (!file)
        return failure(FileError::Operation::copied, plan.name, file.error());
    return std::move(*file);
}

std::expected<SystemCopyWorker::NewFile, int>
SystemCopyWorker::createFileIn(int folder, const TargetFolder& target, int source, const struct stat& status)
{
    if (auto file = clone(folder, source, status))
        return NewFile{.file = std::move(*file), .hasData = true};
    constexpr mode_t ownersOnly = S_IRUSR | S_IWUSR;
    if (m_hasUnnamedFiles) {
        // Nobody can open a file without a name, so it may have its permissions at once, which
        // saves a call a file.
        const bool hasMode = m_attributes.isModeSetAtCreation(status, target.umask);
        const mode_t mode = hasMode ? status.st_mode & 07777 : ownersOnly;
        auto file = UnpublishedFile::createUnnamed(folder, mode);
        if (file)
            return NewFile{.file = std::move(*file), .hasMode = hasMode};
        if (file.error() != ENOTSUP)
            return std::unexpected(file.error());
        m_hasUnnamedFiles = false;
    }
    auto file = UnpublishedFile::createTemporary(folder, ownersOnly);
    if (!file)
        return std::unexpected(file.error());
    return NewFile{.file = std::move(*file)};
}

/// The whole copy at once, where the system can share the data of a file between two names of one volume.
std::optional<UnpublishedFile> SystemCopyWorker::clone(int folder, int source, const struct stat& status)
{
    if (m_sourceDevice != status.st_dev) {
        m_sourceDevice = status.st_dev;
        m_triesClone = true;
    }
    if (!m_triesClone || status.st_size == 0)
        return std::nullopt;
    auto file = UnpublishedFile::createClone(folder, source);
    if (!file) {
        m_triesClone = file.error() == EINVAL; // which is about the one file
        return std::nullopt;
    }
    struct stat after = {};
    // A file that is being written to is copied by reading it, which notices its changes.
    if (::fstat(source, &after) != 0 || !isUnchanged(status, after))
        return std::nullopt;
    return std::move(*file);
}

} // namespace keelbright
