#include "KeelbrightCore/storage/OrganizeProposal.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/ByteSum.h"

namespace keelbright {

qint64 OrganizeProposal::totalBytes() const
{
    return sumOfBytes(files, &FileProposal::sizeBytes);
}

QString OrganizeProposal::formattedSize() const
{
    return ByteCountFormatter::string(totalBytes());
}

} // namespace keelbright
