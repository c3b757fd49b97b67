#pragma once

#include "KeelbrightCore/platform/system/Cancellation.h"
#include "KeelbrightCore/storage/LargeFileItem.h"

#include <QList>

namespace keelbright::LargestFilesScanner {

/// The `limit` largest regular files below `root`, largest first; of equal sizes those found first.
/// Hidden entries, what packages below the root hold, links and empty files are left out, and so is
/// what can't be read. The root itself may be a link to a folder. `limit` is at least 1.
///
/// Never holds more than `limit` files, however many there are. Ends at the next entry, with what it has
/// found so far, once it is cancelled. Blocks; any thread.
[[nodiscard]] QList<LargeFileItem> scan(const FileURL& root, qsizetype limit,
                                        const Cancellation& cancellation = Cancellation());

} // namespace keelbright::LargestFilesScanner
