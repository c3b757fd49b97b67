#include "KeelbrightCore/backup/BackupSource.h"

namespace keelbright {

using namespace Qt::StringLiterals;

QString BackupSource::icon() const
{
    const QString name = displayName().toLower();
    if (name == "documents"_L1)
        return u"doc.fill"_s;
    if (name == "desktop"_L1)
        return u"menubar.rectangle"_s;
    if (name == "pictures"_L1)
        return u"photo.fill"_s;
    return u"folder.fill"_s;
}

QJsonObject BackupSource::toJson() const
{
    return {{u"id"_s, uuidText(id)}, {u"url"_s, url.absoluteString()}, {u"isEnabled"_s, isEnabled}};
}

Decoded<BackupSource> BackupSource::fromJson(const JsonDecoder& json)
{
    const auto id = json.uuid(u"id"_s);
    const auto url = json.url(u"url"_s);
    const auto isEnabled = json.boolean(u"isEnabled"_s);
    if (const auto error = firstError(id, url, isEnabled))
        return std::unexpected(*error);
    return BackupSource{*id, *url, *isEnabled};
}

} // namespace keelbright
