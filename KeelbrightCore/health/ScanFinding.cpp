#include "KeelbrightCore/health/ScanFinding.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"

namespace keelbright {

QString ScanFinding::formattedSize() const
{
    return sizeBytes > 0 ? ByteCountFormatter::string(sizeBytes) : QString();
}

QString ScanFinding::rawValue(Category category)
{
    switch (category) {
    case Category::junk:
        return QStringLiteral(QT_TRANSLATE_NOOP("ScanFinding", "Junk"));
    case Category::apps:
        return QStringLiteral(QT_TRANSLATE_NOOP("ScanFinding", "Apps"));
    case Category::storage:
        return QStringLiteral(QT_TRANSLATE_NOOP("ScanFinding", "Storage"));
    case Category::backup:
        return QStringLiteral(QT_TRANSLATE_NOOP("ScanFinding", "Backup"));
    }
    Q_UNREACHABLE();
}

} // namespace keelbright
