#pragma once

#include <expected>
#include <sys/stat.h>

namespace keelbright {

/// Gives copies the owner, the mode, the extended attributes and the times of their sources.
/// Internal to the platform folder.
///
/// What a drive can't hold (FAT has no modes) is no error. The owner is kept only where the user may
/// give files away; otherwise a copy is the user's own.
class CopyAttributes
{
public:
    CopyAttributes();

    /// The permissions that new files in an open folder do not get at creation.
    [[nodiscard]] mode_t umaskIn(int folder) const;

    /// Whether a copy that is created with the mode of its source has that mode from then on.
    [[nodiscard]] bool isModeSetAtCreation(const struct stat& source, mode_t umask) const;

    /// Copies all attributes from one open file to another, whose data is complete: nothing may
    /// change its times afterwards. `status` is that of the source; `hasMode` says that the copy has
    /// its mode already. Fails with an `errno` value.
    [[nodiscard]] std::expected<void, int> copy(int source, int target, const struct stat& status,
                                                bool hasMode) const;

    /// What the copy of a folder gets when it is complete.
    struct FolderEnd
    {
        mode_t mode = S_IRWXU;
        struct stat source = {}; ///< for its times
    };

    /// Gives the open copy of a folder the owner, the access lists and the permissions of its source. Until
    /// it is complete its owner may also write to it. Nobody else ever gets more rights than at the source,
    /// not even for a moment. `isShared` says that the copy holds files of another source too: then nobody
    /// else gets more rights than at both. Fails with an `errno` value.
    [[nodiscard]] std::expected<FolderEnd, int> beginFolder(int source, int copy,
                                                            bool isShared = false) const;
    /// Gives the copy its last permissions and its times; nothing may be added to it afterwards.
    static void endFolder(int copy, const FolderEnd& end);

private:
    /// Gives the copy its owner, where that is allowed; the result is what it may have of the mode.
    [[nodiscard]] mode_t giveOwner(int copy, const struct stat& source) const;
    /// Whether a copy has the owner of its source without being given away.
    [[nodiscard]] bool isOwn(const struct stat& source) const;

    uid_t m_user; ///< the owner of new files
    gid_t m_group;
    mode_t m_umask;
};

} // namespace keelbright
