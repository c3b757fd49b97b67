#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

namespace keelbright {

/// Replaces a file's content in one step and brings it onto the drive: a crash at any moment
/// leaves the old or the new file whole, and under a temporary name a whole one at most (a part of
/// it only where the file system knows no unnamed files). A new file is readable by all that the
/// user's mask allows; an old one's mode is kept. Internal to the platform folder.
[[nodiscard]] std::expected<void, FileError> atomicWrite(const FileURL& url, const QByteArray& data);

/// The same in an open folder, wherever its path leads by now.
[[nodiscard]] std::expected<void, FileError> atomicWrite(int folder, const QByteArray& name,
                                                         const QByteArray& data);

} // namespace keelbright
