#pragma once

#include "KeelbrightCore/platform/files/FileError.h"

#include <expected>
#include <optional>
#include <sys/types.h>
#include <variant>

namespace keelbright {

/// Why something failed: an `errno` value, or a reason of this program's own.
using FailureCause = std::variant<int, FileError::Reason>;

/// What others may do with open folders of the user, all of one file system. Internal to the platform
/// folder.
///
/// A file system without owners or modes (FAT, some network drives) shows every file with the same
/// ones. There a folder can't be closed to anybody, and neither can what is put into it. Whether it is
/// such a file system is found out, where that matters, by a file that is made for a moment.
class FolderPrivacy
{
public:
    /// The file is made in `trialFolder`, which stays the caller's and open.
    explicit FolderPrivacy(int trialFolder)
        : m_trialFolder(trialFolder)
    {}

    /// Fails where the folder belongs to somebody else or others may change it.
    [[nodiscard]] std::expected<void, FailureCause> checkIsOwn(int folder);
    /// Takes all rights in the folder from others; fails where that was not possible.
    [[nodiscard]] std::expected<void, FailureCause> closeToOthers(int folder);

private:
    /// What the file system makes of a new file of the user.
    struct NewFile
    {
        uid_t owner = 0;
        bool hasTheModeThatWasAsked = false;
    };

    [[nodiscard]] std::expected<NewFile, int> newFile();
    [[nodiscard]] std::expected<NewFile, int> tryNewFile() const;

    int m_trialFolder;
    std::optional<std::expected<NewFile, int>> m_newFile;
};

} // namespace keelbright
