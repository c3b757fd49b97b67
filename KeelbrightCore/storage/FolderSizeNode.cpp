#include "KeelbrightCore/storage/FolderSizeNode.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

#include <algorithm>

namespace keelbright {

QString FolderSizeNode::formattedSize() const
{
    return ByteCountFormatter::string(totalBytes);
}

double FolderSizeNode::fraction(qint64 ofTotal) const
{
    if (ofTotal <= 0)
        return 0.0;
    return std::min(static_cast<double>(totalBytes) / static_cast<double>(ofTotal), 1.0);
}

} // namespace keelbright
