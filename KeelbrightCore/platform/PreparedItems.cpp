#include "KeelbrightCore/platform/PreparedItems.h"

#include "KeelbrightCore/platform/SystemCalls.h"
#include "KeelbrightCore/platform/TemporaryName.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {

namespace {

FileError failure(FileError::Operation operation, const QByteArray& name, int code)
{
    return FileError::fromCode(operation, QString::fromUtf8(name), code);
}

std::expected<void, int> renameIfFree(int folder, const QByteArray& from, const QByteArray& to)
{
    auto renamed = SystemCalls::renameWithoutReplacing(folder, from.constData(), folder, to.constData());
    if (renamed || renamed.error() != ENOTSUP)
        return renamed;
    struct stat status = {};
    if (::fstatat(folder, to.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0)
        return std::unexpected(EEXIST);
    if (::renameat(folder, from.constData(), folder, to.constData()) != 0)
        return std::unexpected(errno);
    return {};
}

/// Puts the file named `temporary` in the place of the one named `name`, in one step. Where that
/// fails the temporary file stays.
std::expected<void, FileError> swapIn(int folder, const QByteArray& temporary, const QByteArray& name)
{
    if (::renameat(folder, temporary.constData(), folder, name.constData()) != 0)
        return std::unexpected(failure(FileError::Operation::replaced, name, errno));
    return {};
}

bool isFolder(int folder, const QByteArray& name)
{
    struct stat status = {};
    return ::fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

PreparedFile::PreparedFile(int folder, FileDescriptor file, QByteArray temporaryName, QByteArray name)
    : m_folder(folder)
    , m_file(std::move(file))
    , m_temporaryName(std::move(temporaryName))
    , m_name(std::move(name))
{}

PreparedFile::~PreparedFile()
{
    if (!m_temporaryName.isEmpty())
        ::unlinkat(m_folder, m_temporaryName.constData(), 0);
}

std::expected<void, FileError> PreparedFile::publish()
{
    const auto named = publishAsNew();
    if (named)
        return {};
    if (named.error() != EEXIST)
        return std::unexpected(failure(FileError::Operation::copied, m_name, named.error()));
    // Nothing of the user's is ever removed from the drive, so a folder is not replaced by a file.
    if (isFolder(m_folder, m_name))
        return std::unexpected(failure(FileError::Operation::replaced, m_name, EISDIR));
    return replaceOld();
}

std::expected<void, int> PreparedFile::publishAsNew()
{
    if (m_temporaryName.isEmpty())
        return SystemCalls::nameUnnamed(m_file.get(), m_folder, m_name.constData());
    auto renamed = renameIfFree(m_folder, m_temporaryName, m_name);
    if (renamed)
        m_temporaryName.clear();
    return renamed;
}

std::expected<void, FileError> PreparedFile::replaceOld()
{
    QByteArray temporary = std::move(m_temporaryName);
    m_temporaryName.clear();
    if (temporary.isEmpty()) {
        temporary = keelbright::temporaryName();
        const auto named = SystemCalls::nameUnnamed(m_file.get(), m_folder, temporary.constData());
        if (!named)
            return std::unexpected(failure(FileError::Operation::copied, m_name, named.error()));
    }
    return swapIn(m_folder, temporary, m_name);
}

PreparedLink::PreparedLink(int folder, QByteArray linkTarget, QByteArray name)
    : m_folder(folder)
    , m_linkTarget(std::move(linkTarget))
    , m_name(std::move(name))
{}

std::expected<void, FileError> PreparedLink::publish()
{
    if (::symlinkat(m_linkTarget.constData(), m_folder, m_name.constData()) == 0)
        return {};
    if (errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS) {
        return std::unexpected(FileError{FileError::Operation::copied, QString::fromUtf8(m_name),
                                         FileError::Reason::linksNotSupported});
    }
    if (errno != EEXIST)
        return std::unexpected(failure(FileError::Operation::copied, m_name, errno));
    if (isFolder(m_folder, m_name))
        return std::unexpected(failure(FileError::Operation::replaced, m_name, EISDIR));
    const QByteArray temporary = temporaryName();
    if (::symlinkat(m_linkTarget.constData(), m_folder, temporary.constData()) != 0)
        return std::unexpected(failure(FileError::Operation::copied, m_name, errno));
    return swapIn(m_folder, temporary, m_name);
}

} // namespace keelbright
