#include "KeelbrightCore/platform/files/PreparedItems.h"

#include "KeelbrightCore/platform/files/NameForms.h"
#include "KeelbrightCore/platform/files/TemporaryName.h"
#include "KeelbrightCore/platform/files/Unsupported.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {

namespace {

bool isFolder(int folder, const QByteArray& name)
{
    struct stat status = {};
    return ::fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
}

/// Fails where the name would replace its twin.
std::expected<void, FileError> checkName(int folder, const QByteArray& name, const QByteArray& twin)
{
    if (!twin.isEmpty() && areTheSame(folder, twin, name))
        return failure(FileError::Operation::copied, name, FileError::Reason::nameTakenForAnother);
    return {};
}

} // namespace

PreparedFile::PreparedFile(const PlannedCopy& plan, FileDescriptor newFolder, UnpublishedFile file,
                           FileDescriptor replaced, qint64 sourceSize, bool isReplacing)
    : m_folder(plan.target)
    , m_newFolder(std::move(newFolder))
    , m_file(std::move(file))
    , m_replaced(std::move(replaced))
    , m_name(plan.name)
    , m_sourceSize(sourceSize)
    , m_twin(plan.twin)
    , m_isReplacing(isReplacing)
    // A file that is closed already was written before.
    , m_isWritten(!m_folder->flushesBeforeReplacing || m_file.descriptor() < 0)
{}

std::expected<void, FileError> PreparedFile::flushBeforeReplacing()
{
    return m_isReplacing ? waitUntilWritten() : std::expected<void, FileError>();
}

std::expected<void, FileError> PreparedFile::waitUntilWritten()
{
    if (m_isWritten)
        return {};
    if (const auto written = m_file.waitUntilWritten(); !written)
        return failure(FileError::Operation::flushed, m_name, written.error());
    m_isWritten = true;
    return {};
}

std::expected<void, FileError> PreparedFile::publish()
{
    if (auto inPlace = m_folder->anchor->checkPlace(); !inPlace)
        return inPlace;
    if (auto checked = checkName(m_folder->folder.get(), m_name, m_twin); !checked)
        return checked;
    const bool wasUnnamed = m_file.isUnnamed();
    auto named = giveName();
    if (!named && named.error().code == ENOENT && wasUnnamed) {
        // Somebody has removed the folder. A file without a name outlives that.
        auto folder = m_folder->anchor->recreateFolder(m_folder->path);
        if (!folder)
            return std::unexpected(folder.error());
        m_newFolder = std::move(*folder);
        m_file.moveTo(m_newFolder.get());
        named = giveName();
    }
    return named;
}

std::expected<void, FileError> PreparedFile::giveName()
{
    if (!m_isReplacing) {
        const auto named = m_file.publish(m_name);
        if (named)
            return {};
        if (named.error() != EEXIST)
            return failure(FileError::Operation::copied, m_name, named.error());
    }
    if (auto written = waitUntilWritten(); !written)
        return written;
    const auto replaced = m_file.publishReplacing(m_name);
    if (replaced)
        return {};
    if (m_file.isUnnamed())
        return failure(FileError::Operation::copied, m_name, replaced.error());
    // A folder is not replaced by a file, as nothing of the user's is ever removed from the drive;
    // the copy goes then. After any other failure it stays, for it may be the only one.
    if (replaced.error() != EISDIR)
        m_file.keepTemporary();
    return failure(FileError::Operation::replaced, m_name, replaced.error());
}

PreparedLink::PreparedLink(const PlannedCopy& plan, QByteArray linkTarget)
    : m_folder(plan.target)
    , m_linkTarget(std::move(linkTarget))
    , m_name(plan.name)
    , m_twin(plan.twin)
{}

std::expected<void, FileError> PreparedLink::publish()
{
    if (auto inPlace = m_folder->anchor->checkPlace(); !inPlace)
        return inPlace;
    const int folder = m_folder->folder.get();
    if (auto checked = checkName(folder, m_name, m_twin); !checked)
        return checked;
    if (::symlinkat(m_linkTarget.constData(), folder, m_name.constData()) == 0)
        return {};
    if (errno == EPERM || meansUnsupported(errno))
        return failure(FileError::Operation::copied, m_name, FileError::Reason::linksNotSupported);
    if (errno != EEXIST)
        return failure(FileError::Operation::copied, m_name, errno);
    if (isFolder(folder, m_name))
        return failure(FileError::Operation::replaced, m_name, EISDIR);
    const QByteArray temporary = temporaryName();
    if (::symlinkat(m_linkTarget.constData(), folder, temporary.constData()) != 0)
        return failure(FileError::Operation::copied, m_name, errno);
    if (::renameat(folder, temporary.constData(), folder, m_name.constData()) != 0)
        return failure(FileError::Operation::replaced, m_name, errno);
    return {};
}

} // namespace keelbright
