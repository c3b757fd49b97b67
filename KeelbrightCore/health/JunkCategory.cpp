#include "KeelbrightCore/health/JunkCategory.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/ByteSum.h"

namespace keelbright {

qint64 JunkCategory::totalBytes() const
{
    return sumOfBytes(items, &JunkItem::sizeBytes);
}

QString JunkCategory::formattedSize() const
{
    return ByteCountFormatter::string(totalBytes());
}

} // namespace keelbright
