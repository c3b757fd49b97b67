#include "KeelbrightCore/platform/files/FolderPrivacy.h"

#include "KeelbrightCore/platform/files/UnpublishedFile.h"

#include <sys/stat.h>
#include <tuple>

namespace keelbright {

namespace {

constexpr mode_t fileOfOwnerOnly = 0600;
constexpr mode_t allRights = 07777;
constexpr mode_t rightsOfOwner = 0700;
constexpr mode_t rightsOfOthers = 0077;
constexpr mode_t writingOfOthers = 0022;

} // namespace

std::expected<void, FailureCause> FolderPrivacy::checkIsOwn(int folder)
{
    struct stat status = {};
    if (::fstat(folder, &status) != 0)
        return std::unexpected(errno);
    const bool isClosed = (status.st_mode & writingOfOthers) == 0;
    if (status.st_uid == ::geteuid() && isClosed)
        return {};
    const auto file = newFile();
    if (file && status.st_uid == file->owner && (isClosed || !file->hasTheModeThatWasAsked))
        return {};
    return std::unexpected(FileError::Reason::trashOpenToOthers);
}

std::expected<void, FailureCause> FolderPrivacy::closeToOthers(int folder)
{
    struct stat status = {};
    if (::fstat(folder, &status) != 0)
        return std::unexpected(errno);
    if ((status.st_mode & rightsOfOthers) == 0)
        return {};
    // Refused or ignored where there are no modes.
    std::ignore = ::fchmod(folder, status.st_mode & rightsOfOwner);
    if (::fstat(folder, &status) != 0)
        return std::unexpected(errno);
    if ((status.st_mode & rightsOfOthers) == 0)
        return {};
    if (const auto file = newFile(); file && !file->hasTheModeThatWasAsked)
        return {};
    return std::unexpected(FileError::Reason::trashOpenToOthers);
}

std::expected<FolderPrivacy::NewFile, int> FolderPrivacy::newFile()
{
    if (!m_newFile)
        m_newFile = tryNewFile();
    return *m_newFile;
}

/// The file is judged by its descriptor: somebody who can rename files in the folder could put another
/// one under its name.
std::expected<FolderPrivacy::NewFile, int> FolderPrivacy::tryNewFile() const
{
    const auto file = UnpublishedFile::create(m_trialFolder, fileOfOwnerOnly);
    if (!file)
        return std::unexpected(file.error());
    // Refused or ignored where there are no modes.
    std::ignore = ::fchmod(file->descriptor(), fileOfOwnerOnly);
    struct stat status = {};
    if (::fstat(file->descriptor(), &status) != 0)
        return std::unexpected(errno);
    return NewFile{status.st_uid, (status.st_mode & allRights) == fileOfOwnerOnly};
}

} // namespace keelbright
