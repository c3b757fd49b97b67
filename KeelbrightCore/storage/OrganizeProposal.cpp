#include "KeelbrightCore/storage/OrganizeProposal.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/ByteSum.h"

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
