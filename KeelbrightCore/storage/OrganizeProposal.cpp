#include "KeelbrightCore/storage/OrganizeProposal.h"

#include "KeelbrightCore/platform/ByteCountFormatter.h"
#include "KeelbrightCore/platform/ByteSum.h"

namespace keelbright {

qint64 OrganizeProposal::totalBytes() const
{
    qint64 total = 0;
    for (const FileProposal& file : files)
        total = addedWithoutOverflow(total, file.sizeBytes);
    return total;
}

QString OrganizeProposal::formattedSize() const
{
    return ByteCountFormatter::string(totalBytes());
}

} // namespace keelbright
