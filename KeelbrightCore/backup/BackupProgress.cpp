#include "KeelbrightCore/backup/BackupProgress.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

#include <algorithm>

namespace keelbright {

double BackupProgress::fractionCompleted() const
{
    if (totalFilesEstimate <= 0)
        return 0;
    // Skipped folders count above the line and not below it, hence the cap.
    const auto done = static_cast<double>(filesCopied) + static_cast<double>(filesSkipped);
    return std::min(done / static_cast<double>(totalFilesEstimate), 1.0);
}

QString BackupProgress::copiedSizeFormatted() const
{
    return ByteCountFormatter::string(bytesCopied);
}

} // namespace keelbright
