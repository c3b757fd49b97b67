#include "KeelbrightCore/backup/BackupProgress.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

#include <algorithm>

namespace keelbright {

double BackupProgress::fractionCompleted() const
{
    if (totalFilesEstimate <= 0)
        return 0;
    // Skipped folders count as done, but the estimate does not include them.
    const auto done = static_cast<double>(filesCopied) + static_cast<double>(filesSkipped);
    return std::min(done / static_cast<double>(totalFilesEstimate), 1.0);
}

QString BackupProgress::copiedSizeFormatted() const
{
    return ByteCountFormatter::string(bytesCopied);
}

} // namespace keelbright
