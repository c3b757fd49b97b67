#include "KeelbrightCore/health/ScanFinding.h"

#include "KeelbrightCore/platform/ByteCountFormatter.h"

namespace keelbright {

using namespace Qt::StringLiterals;

QString ScanFinding::formattedSize() const
{
    return sizeBytes > 0 ? ByteCountFormatter::string(sizeBytes) : QString();
}

QString ScanFinding::rawValue(Category category)
{
    switch (category) {
    case Category::junk:
        return u"Junk"_s;
    case Category::apps:
        return u"Apps"_s;
    case Category::storage:
        return u"Storage"_s;
    case Category::backup:
        return u"Backup"_s;
    }
    Q_UNREACHABLE();
}

} // namespace keelbright
