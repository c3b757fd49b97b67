#include "KeelbrightCore/storage/FileProposal.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

namespace keelbright {

QString FileProposal::formattedSize() const
{
    return ByteCountFormatter::string(sizeBytes);
}

} // namespace keelbright
