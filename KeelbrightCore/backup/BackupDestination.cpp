#include "KeelbrightCore/backup/BackupDestination.h"

namespace keelbright {

using namespace Qt::StringLiterals;

QJsonObject BackupDestination::toJson() const
{
    return {{u"id"_s, uuidText(id)}, {u"url"_s, url.absoluteString()}};
}

Decoded<BackupDestination> BackupDestination::fromJson(const JsonDecoder& json)
{
    const auto id = json.uuid(u"id"_s);
    const auto url = json.url(u"url"_s);
    if (const auto error = firstError(id, url))
        return std::unexpected(*error);
    return BackupDestination{*id, *url};
}

} // namespace keelbright
