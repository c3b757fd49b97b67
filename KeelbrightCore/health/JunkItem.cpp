#include "KeelbrightCore/health/JunkItem.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

namespace keelbright {

QString JunkItem::name() const
{
    return url.lastPathComponent();
}

QString JunkItem::formattedSize() const
{
    return ByteCountFormatter::string(sizeBytes);
}

} // namespace keelbright
