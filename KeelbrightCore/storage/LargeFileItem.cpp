#include "KeelbrightCore/storage/LargeFileItem.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

namespace keelbright {

QString LargeFileItem::formattedSize() const
{
    return ByteCountFormatter::string(sizeBytes);
}

} // namespace keelbright
