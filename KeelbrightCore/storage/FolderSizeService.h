#pragma once

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/storage/FolderSizeNode.h"

#include <QList>

namespace keelbright {

/// How much folders hold. Reads metadata only. Everything here blocks; any thread.
namespace FolderSizeService {

/// The sum of the logical sizes of everything but folders below a folder; 0 where it can't be
/// opened. Hidden entries add nothing, and a package below the folder is passed over, while one
/// that is the folder itself is measured. What can't be read adds nothing.
///
/// Links are never followed, not even as the folder itself: a link below it adds the few bytes of
/// its own text, and where the folder itself is a link, the sum is 0. Stays at the largest value
/// instead of overflowing.
///
/// A large folder is walked by several threads.
[[nodiscard]] qint64 recursiveSize(const FileURL& url, const FileManager& fm);

/// The same for several folders at once, in their order.
[[nodiscard]] QList<qint64> recursiveSizes(const QList<FileURL>& urls, const FileManager& fm);

/// The entries of one folder, largest first, equal sizes in the order of the listing; empty where
/// it can't be read. Hidden entries and links are left out; what can't be measured has size 0. The
/// folder itself may be a link to one.
[[nodiscard]] QList<FolderSizeNode> scanLevel(const FileURL& url);

} // namespace FolderSizeService
} // namespace keelbright
