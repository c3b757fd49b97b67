#pragma once

#include "KeelbrightCore/platform/files/FileError.h"
#include "KeelbrightCore/platform/files/FileURL.h"

#include <functional>

namespace keelbright {

/// The next piece of a content that is too long to lie in memory; an empty one at its end.
using NextPiece = std::function<std::expected<QByteArray, FileError>()>;

/// Replaces a file's content in one step and brings it onto the drive: a crash at any moment
/// leaves the old or the new file whole. It may also leave a file with a temporary name, which is
/// whole where the file system supports unnamed files. A new file gets the mode that the process's
/// umask allows; an old one's mode is kept. Of a link, the file behind it is replaced. Internal to the
/// platform folder.
[[nodiscard]] std::expected<void, FileError> atomicWrite(const FileURL& url, const QByteArray& data);

/// The same with what `nextPiece` gives; where that fails, nothing is replaced.
[[nodiscard]] std::expected<void, FileError> atomicWrite(const FileURL& url, const NextPiece& nextPiece);

/// The same in an open folder, wherever its path leads by now; a link there is replaced.
[[nodiscard]] std::expected<void, FileError> atomicWrite(int folder, const QByteArray& name,
                                                         const QByteArray& data);

} // namespace keelbright
