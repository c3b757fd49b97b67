#include "KeelbrightCore/platform/files/PreparedItems.h"

#include "KeelbrightCore/platform/files/SystemCalls.h"
#include "KeelbrightCore/platform/files/TemporaryName.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {

namespace {

/// Puts the file named `temporary` in the place of the one named `name`, in one step. 0, or the
/// `errno` value where that fails; the temporary file stays then.
int swapIn(int folder, const QByteArray& temporary, const QByteArray& name)
{
    return ::renameat(folder, temporary.constData(), folder, name.constData()) == 0 ? 0 : errno;
}

bool isFolder(int folder, const QByteArray& name)
{
    struct stat status = {};
    return ::fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
}

} // namespace

PreparedFile::PreparedFile(std::shared_ptr<const TargetFolder> folder, FileDescriptor file,
                           QByteArray temporaryName, QByteArray name)
    : m_folder(std::move(folder))
    , m_file(std::move(file))
    , m_temporaryName(std::move(temporaryName))
    , m_name(std::move(name))
{}

PreparedFile::~PreparedFile()
{
    if (!m_temporaryName.isEmpty())
        ::unlinkat(folder(), m_temporaryName.constData(), 0);
}

int PreparedFile::finishWriting()
{
    return m_temporaryName.isEmpty() ? 0 : m_file.close();
}

std::expected<void, FileError> PreparedFile::publish()
{
    if (auto inPlace = m_folder->checkPlace(); !inPlace)
        return inPlace;
    const bool hadNoName = m_temporaryName.isEmpty();
    auto named = giveName();
    if (!named && named.error().code == ENOENT && hadNoName) {
        // Somebody removed the folder under our hands; the file without a name outlived it.
        m_temporaryName.clear();
        auto made = m_folder->makeAnew();
        if (!made)
            return std::unexpected(made.error());
        m_newFolder = std::move(*made);
        named = giveName();
    }
    return named;
}

int PreparedFile::folder() const
{
    return m_newFolder.isOpen() ? m_newFolder.get() : m_folder->folder.get();
}

std::expected<void, FileError> PreparedFile::giveName()
{
    if (m_folder->likelyName == NameIs::free) {
        const auto taken = takeFreeName();
        if (taken)
            return {};
        if (taken.error() != EEXIST)
            return failure(FileError::Operation::copied, m_name, taken.error());
    }
    return replaceOld();
}

std::expected<void, int> PreparedFile::takeFreeName()
{
    if (m_temporaryName.isEmpty())
        return SystemCalls::nameUnnamed(m_file.get(), folder(), m_name.constData());
    auto renamed = SystemCalls::renameWithoutReplacing(folder(), m_temporaryName.constData(), folder(),
                                                       m_name.constData());
    if (renamed)
        m_temporaryName.clear();
    return renamed;
}

std::expected<void, FileError> PreparedFile::replaceOld()
{
    if (m_temporaryName.isEmpty()) {
        QByteArray temporary = temporaryName();
        const auto named = SystemCalls::nameUnnamed(m_file.get(), folder(), temporary.constData());
        if (!named)
            return failure(FileError::Operation::copied, m_name, named.error());
        m_temporaryName = std::move(temporary);
    }
    const int code = swapIn(folder(), m_temporaryName, m_name);
    // A folder is not replaced by a file, as nothing of the user's is ever removed from the drive;
    // the copy goes then. After any other failure it stays, for it may be the only one.
    if (code != EISDIR)
        m_temporaryName.clear();
    if (code != 0)
        return failure(FileError::Operation::replaced, m_name, code);
    return {};
}

PreparedLink::PreparedLink(std::shared_ptr<const TargetFolder> folder, QByteArray linkTarget, QByteArray name)
    : m_folder(std::move(folder))
    , m_linkTarget(std::move(linkTarget))
    , m_name(std::move(name))
{}

std::expected<void, FileError> PreparedLink::publish()
{
    if (auto inPlace = m_folder->checkPlace(); !inPlace)
        return inPlace;
    const int folder = m_folder->folder.get();
    if (::symlinkat(m_linkTarget.constData(), folder, m_name.constData()) == 0)
        return {};
    if (errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS)
        return failure(FileError::Operation::copied, m_name, FileError::Reason::linksNotSupported);
    if (errno != EEXIST)
        return failure(FileError::Operation::copied, m_name, errno);
    if (isFolder(folder, m_name))
        return failure(FileError::Operation::replaced, m_name, EISDIR);
    const QByteArray temporary = temporaryName();
    if (::symlinkat(m_linkTarget.constData(), folder, temporary.constData()) != 0)
        return failure(FileError::Operation::copied, m_name, errno);
    if (const int code = swapIn(folder, temporary, m_name))
        return failure(FileError::Operation::replaced, m_name, code);
    return {};
}

} // namespace keelbright
