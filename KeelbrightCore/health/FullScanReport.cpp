#include "KeelbrightCore/health/FullScanReport.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

namespace keelbright {

QString FullScanReport::formattedReclaimable() const
{
    return ByteCountFormatter::string(totalReclaimableBytes);
}

} // namespace keelbright
