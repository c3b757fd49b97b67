#include "KeelbrightCore/health/JunkCategory.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/ByteSum.h"

namespace keelbright {

qint64 JunkCategory::totalBytes() const
{
    qint64 total = 0;
    for (const JunkItem& item : items)
        total = addedWithoutOverflow(total, item.sizeBytes);
    return total;
}

QString JunkCategory::formattedSize() const
{
    return ByteCountFormatter::string(totalBytes());
}

} // namespace keelbright
