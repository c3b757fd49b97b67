#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/files/FolderPrivacy.h"

#include <QList>
#include <expected>
#include <sys/types.h>

namespace keelbright {

/// One Trash of the freedesktop kind, opened for use: the folder `files` with the items, and
/// `info` with a record for each. Both are closed to others, so that what was private stays private.
/// Internal to the platform folder.
class TrashFolder
{
public:
    /// The Trash of the home's volume. It is made where it is missing, with its parents.
    [[nodiscard]] static std::expected<TrashFolder, FailureCause> ofHome(const FileURL& homeTrash);
    /// The user's Trash on another volume, whose top folder is given: in the shared `.Trash` that
    /// the administrator made, else in one of the user's own beside it. A Trash that belongs to
    /// somebody else, or that others may change, is passed over.
    [[nodiscard]] static std::expected<TrashFolder, FailureCause> ofVolume(const FileURL& top);

    [[nodiscard]] FileURL files() const { return m_location.appendingNative("files"); }

    [[nodiscard]] int filesDescriptor() const { return m_files.get(); }

    [[nodiscard]] int infoDescriptor() const { return m_info.get(); }

    /// How many bytes the name of a record may have.
    [[nodiscard]] qsizetype maximumNameLength() const;

private:
    /// Whose folders are taken for a Trash.
    enum class Owner { anybody, userOnly };

    [[nodiscard]] static std::expected<TrashFolder, FailureCause> open(const FileURL& location, Owner owner);
    /// `files` or `info`, made where it is missing and closed to others.
    [[nodiscard]] static std::expected<FileDescriptor, FailureCause>
    openPart(int trash, const char* name, Owner owner, FolderPrivacy& privacy);
    [[nodiscard]] static std::expected<TrashFolder, FailureCause> openOnVolume(const FileURL& location);

    FileURL m_location;
    FileDescriptor m_files;
    FileDescriptor m_info;
};

/// Where the user's Trash may be on a volume whose top folder is given: in the shared one, if the
/// administrator made one, and in one of the user's own. Neither need exist.
[[nodiscard]] QList<FileURL> volumeTrashes(const FileURL& top);

/// The top folder of the volume that holds `folder`, which must exist and have no link in its path.
/// Fails where a folder on the way can't be read: a Trash in any folder but the top is never shown.
[[nodiscard]] std::expected<FileURL, int> volumeTop(const FileURL& folder, dev_t device);

/// The device that the folder lies on; where it does not exist, the device that it will lie on.
[[nodiscard]] std::expected<dev_t, int> deviceOf(const FileURL& folder);

/// Whether `path`, relative to the top of its volume, lies in a user's Trash there; `isTrash` says
/// that it is the Trash itself or one of its parts.
enum class TrashRelation { outside, isTrash, inside };
[[nodiscard]] TrashRelation relationToVolumeTrash(QByteArrayView path);

} // namespace keelbright
