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

/// The sticky bit keeps users from removing each other's folders in there.
bool isSharedTrash(const FileURL& folder)
{
    struct stat status = {};
    return ::lstat(folder.nativePath().constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           (status.st_mode & S_ISVTX) != 0;
}

bool isUserNumber(QByteArrayView text)
{
    return !text.isEmpty() && std::ranges::all_of(text, [](char byte) { return byte >= '0' && byte <= '9'; });
}

} // namespace

std::expected<FileDescriptor, FailureCause> TrashFolder::openPart(int trash, const char* name, Owner owner,
                                                                  FolderPrivacy& privacy)
{
    if (::mkdirat(trash, name, ownerOnly) != 0 && errno != EEXIST)
        return std::unexpected(errno);
    FileDescriptor part(
        retrying([&] { return ::openat(trash, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
    if (!part.isOpen())
        return std::unexpected(errno);
    std::expected<void, FailureCause> allowed;
    if (owner == Owner::userOnly)
        allowed = privacy.checkIsOwn(part.get());
    if (allowed)
        allowed = privacy.closeToOthers(part.get());
    if (!allowed)
        return std::unexpected(allowed.error());
    return part;
}

std::expected<TrashFolder, FailureCause> TrashFolder::open(const FileURL& location, Owner owner)
{
    const int linkFlag = owner == Owner::userOnly ? O_NOFOLLOW : 0;
    const FileDescriptor trash(retrying([&] {
        return ::open(location.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | linkFlag);
    }));
    if (!trash.isOpen())
        return std::unexpected(errno);
    FolderPrivacy privacy(trash.get());
    if (owner == Owner::userOnly) {
        if (const auto own = privacy.checkIsOwn(trash.get()); !own)
            return std::unexpected(own.error());
    }
    auto files = openPart(trash.get(), "files", owner, privacy);
    if (!files)
        return std::unexpected(files.error());
    auto info = openPart(trash.get(), "info", owner, privacy);
    if (!info)
        return std::unexpected(info.error());
    TrashFolder folder;
    folder.m_location = location;
    folder.m_files = std::move(*files);
    folder.m_info = std::move(*info);
    return folder;
}

std::expected<TrashFolder, FailureCause> TrashFolder::openOnVolume(const FileURL& location)
{
    if (auto made = makePrivateFolder(location); !made)
        return std::unexpected(made.error());
    // Others may write to a volume, and so prepare a Trash in the user's name or put a link there.
    return open(location, Owner::userOnly);
}

std::expected<TrashFolder, FailureCause> TrashFolder::ofHome(const FileURL& homeTrash)
{
    if (auto made = makePrivateFolders(homeTrash); !made)
        return std::unexpected(made.error());
    return open(homeTrash, Owner::anybody);
}

std::expected<TrashFolder, FailureCause> TrashFolder::ofVolume(const FileURL& top)
{
    const QList<FileURL> places = volumeTrashes(top);
    if (places.size() > 1) {
        if (auto folder = openOnVolume(places.first()))
            return folder;
    }
    return openOnVolume(places.last());
}

qsizetype TrashFolder::maximumNameLength() const
{
    struct statvfs status = {};
    if (::fstatvfs(m_info.get(), &status) != 0 || status.f_namemax == 0)
        return NAME_MAX;
    // Some file systems count characters and report a limit in bytes that is larger than the usual one.
    return static_cast<qsizetype>(std::min<unsigned long>(status.f_namemax, NAME_MAX));
}

QList<FileURL> volumeTrashes(const FileURL& top)
{
    const QByteArray user = QByteArray::number(::getuid());
    QList<FileURL> places{top.appendingNative(".Trash-" + user)};
    if (const FileURL shared = top.appendingNative(".Trash"); isSharedTrash(shared))
        places.prepend(shared.appendingNative(user));
    return places;
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
