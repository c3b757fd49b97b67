#include "KeelbrightCore/apps/AppLeftover.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/storage/FolderSizeService.h"

namespace keelbright {

using namespace Qt::StringLiterals;

const QList<AppLeftover::Kind>& AppLeftover::allKinds()
{
    static const QList<Kind> kinds{Kind::preferences, Kind::cache,       Kind::support, Kind::container,
                                   Kind::savedState,  Kind::launchAgent, Kind::other};
    return kinds;
}

QString AppLeftover::rawValue(Kind kind)
{
    switch (kind) {
    case Kind::preferences:
        return QStringLiteral(QT_TRANSLATE_NOOP("AppLeftover", "Preferences"));
    case Kind::cache:
        return QStringLiteral(QT_TRANSLATE_NOOP("AppLeftover", "Cache"));
    case Kind::support:
        return QStringLiteral(QT_TRANSLATE_NOOP("AppLeftover", "App Support"));
    case Kind::container:
        return QStringLiteral(QT_TRANSLATE_NOOP("AppLeftover", "Container"));
    case Kind::savedState:
        return QStringLiteral(QT_TRANSLATE_NOOP("AppLeftover", "Saved State"));
    case Kind::launchAgent:
        return QStringLiteral(QT_TRANSLATE_NOOP("AppLeftover", "Launch Agent"));
    case Kind::other:
        return QStringLiteral(QT_TRANSLATE_NOOP("AppLeftover", "Other"));
    }
    Q_UNREACHABLE();
}

QString AppLeftover::icon(Kind kind)
{
    switch (kind) {
    case Kind::preferences:
        return u"slider.horizontal.3"_s;
    case Kind::cache:
        return u"arrow.clockwise.circle"_s;
    case Kind::support:
        return u"folder.fill"_s;
    case Kind::container:
        return u"shippingbox.fill"_s;
    case Kind::savedState:
        return u"clock.fill"_s;
    case Kind::launchAgent:
        return u"gearshape.2.fill"_s;
    case Kind::other:
        return u"doc.fill"_s;
    }
    Q_UNREACHABLE();
}

QString AppLeftover::formattedSize() const
{
    return ByteCountFormatter::string(sizeBytes);
}

AppLeftover measuredLeftover(const FileURL& url, AppLeftover::Kind kind, const FileManager& files)
{
    const qint64 bytes = files.fileExists(url).isDirectory ? FolderSizeService::recursiveSize(url, files)
                                                           : files.fileSize(url).value_or(0);
    return {.url = url, .sizeBytes = bytes, .kind = kind};
}

} // namespace keelbright
