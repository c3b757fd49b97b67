#include "KeelbrightCore/platform/files/TrashFolder.h"

#include <QList>
#include <algorithm>
#include <climits>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace keelbright {

namespace {

constexpr mode_t ownerOnly = 0700;

/// Creates one folder that only the user may look into; one that is there already is fine.
std::expected<void, int> makePrivateFolder(const FileURL& folder)
{
    if (::mkdir(folder.nativePath().constData(), ownerOnly) == 0 || errno == EEXIST)
        return {};
    return std::unexpected(errno);
}

std::expected<void, int> makePrivateFolders(const FileURL& folder)
{
    QList<FileURL> missing;
    struct stat status = {};
    for (FileURL place = folder; ::stat(place.nativePath().constData(), &status) != 0;
         place = place.deletingLastPathComponent()) {
        if (errno != ENOENT || place == FileURL())
            return std::unexpected(errno);
        missing.prepend(place);
    }
    for (const FileURL& place : missing) {
        if (auto made = makePrivateFolder(place); !made)
            return made;
    }
    return {};
}

/// Others may write to a volume: what stands in the Trash's place must be a real folder and the
/// user's own. Where the file system has no owners, everything belongs to the owner of its top.
bool isTrustworthy(const FileURL& folder, const FileURL& top)
{
    struct stat status = {};
    struct stat topStatus = {};
    return ::lstat(folder.nativePath().constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           ::lstat(top.nativePath().constData(), &topStatus) == 0 &&
           (status.st_uid == ::getuid() || status.st_uid == topStatus.st_uid);
}

/// The sticky bit keeps users from removing each other's folders in there.
bool isSharedTrash(const FileURL& folder)
{
    struct stat status = {};
    return ::lstat(folder.nativePath().constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           (status.st_mode & S_ISVTX) != 0;
}

FileDescriptor openPart(int trash, const char* name)
{
    if (::mkdirat(trash, name, ownerOnly) != 0 && errno != EEXIST)
        return {};
    return FileDescriptor(
        retrying([&] { return ::openat(trash, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
}

bool isUserNumber(QByteArrayView text)
{
    return !text.isEmpty() && std::ranges::all_of(text, [](char byte) { return byte >= '0' && byte <= '9'; });
}

} // namespace

std::expected<TrashFolder, int> TrashFolder::open(const FileURL& location, int linkFlag)
{
    const FileDescriptor trash(retrying([&] {
        return ::open(location.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | linkFlag);
    }));
    if (!trash.isOpen())
        return std::unexpected(errno);
    TrashFolder folder;
    folder.m_location = location;
    folder.m_files = openPart(trash.get(), "files");
    if (!folder.m_files.isOpen())
        return std::unexpected(errno);
    folder.m_info = openPart(trash.get(), "info");
    if (!folder.m_info.isOpen())
        return std::unexpected(errno);
    return folder;
}

std::expected<TrashFolder, int> TrashFolder::ofHome(const FileURL& homeTrash)
{
    if (auto made = makePrivateFolders(homeTrash); !made)
        return std::unexpected(made.error());
    return open(homeTrash, 0);
}

std::expected<TrashFolder, int> TrashFolder::ofVolume(const FileURL& top)
{
    const QByteArray user = QByteArray::number(::getuid());
    const FileURL shared = top.appendingNative(".Trash");
    if (isSharedTrash(shared)) {
        const FileURL own = shared.appendingNative(user);
        if (makePrivateFolder(own) && isTrustworthy(own, top)) {
            if (auto folder = open(own, O_NOFOLLOW))
                return folder;
        }
    }
    const FileURL own = top.appendingNative(".Trash-" + user);
    if (auto made = makePrivateFolder(own); !made)
        return std::unexpected(made.error());
    if (!isTrustworthy(own, top))
        return std::unexpected(EPERM);
    return open(own, O_NOFOLLOW);
}

qsizetype TrashFolder::maximumNameLength() const
{
    struct statvfs status = {};
    if (::fstatvfs(m_info.get(), &status) != 0 || status.f_namemax == 0)
        return NAME_MAX;
    // Some file systems count characters and report a limit in bytes that is larger than the usual one.
    return static_cast<qsizetype>(std::min<unsigned long>(status.f_namemax, NAME_MAX));
}

std::expected<FileURL, int> volumeTop(const FileURL& folder, dev_t device)
{
    FileURL top = folder;
    while (top != FileURL()) {
        const FileURL parent = top.deletingLastPathComponent();
        struct stat status = {};
        if (::stat(parent.nativePath().constData(), &status) != 0)
            return std::unexpected(errno);
        if (status.st_dev != device)
            break;
        top = parent;
    }
    return top;
}

std::expected<dev_t, int> deviceOf(const FileURL& folder)
{
    FileURL place = folder;
    struct stat status = {};
    while (::stat(place.nativePath().constData(), &status) != 0) {
        if (errno != ENOENT || place == FileURL())
            return std::unexpected(errno);
        place = place.deletingLastPathComponent();
    }
    return status.st_dev;
}

TrashRelation relationToVolumeTrash(QByteArrayView path)
{
    const QList<QByteArray> parts = path.toByteArray().split('/');
    const QByteArrayView ownPrefix(".Trash-");
    qsizetype trashDepth = 0;
    if (parts.first() == ".Trash" && (parts.size() == 1 || isUserNumber(parts[1])))
        trashDepth = 2;
    else if (parts.first().startsWith(ownPrefix) &&
             isUserNumber(QByteArrayView(parts.first()).sliced(ownPrefix.size())))
        trashDepth = 1;
    if (trashDepth == 0)
        return TrashRelation::outside;
    return parts.size() > trashDepth + 1 ? TrashRelation::inside : TrashRelation::isTrash;
}

} // namespace keelbright
