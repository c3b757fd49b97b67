#include "KeelbrightCore/records/AppConfiguration.h"

#include "KeelbrightCore/platform/text/DateFormatter.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

template <typename Record>
Decoded<std::optional<Record>> optionalRecord(const JsonDecoder& json, const QString& key)
{
    if (!json.has(key))
        return std::nullopt;
    const auto object = json.object(key);
    if (!object)
        return std::unexpected(object.error());
    auto record = Record::fromJson(*object);
    if (!record)
        return std::unexpected(std::move(record).error());
    return *std::move(record);
}

Decoded<std::optional<QDateTime>> optionalDate(const JsonDecoder& json, const QString& key)
{
    if (!json.has(key))
        return std::nullopt;
    const auto date = json.date(key);
    if (!date)
        return std::unexpected(date.error());
    return *date;
}

Decoded<QList<BackupSource>> sourcesFromJson(const JsonDecoder& json, const QString& key)
{
    const auto objects = json.objects(key);
    if (!objects)
        return std::unexpected(objects.error());
    return recordsFromJson<BackupSource>(*objects);
}

} // namespace

QJsonObject AppConfiguration::toJson() const
{
    QJsonArray sources;
    for (const BackupSource& source : customSources)
        sources.append(source.toJson());
    QJsonObject json{
        {u"customSources"_s, sources},
        {u"enabledRecommendedFolders"_s, QJsonArray::fromStringList(enabledRecommendedFolders)},
    };
    if (selectedDestination)
        json.insert(u"selectedDestination"_s, selectedDestination->toJson());
    if (lastReport)
        json.insert(lastReportKey, lastReport->toJson());
    if (lastBackupTime)
        json.insert(u"lastBackupTime"_s, DateFormatter::iso8601(*lastBackupTime));
    return json;
}

Decoded<AppConfiguration> AppConfiguration::fromJson(const JsonDecoder& json)
{
    const auto selectedDestination = optionalRecord<BackupDestination>(json, u"selectedDestination"_s);
    const auto customSources = sourcesFromJson(json, u"customSources"_s);
    const auto enabledRecommendedFolders = json.strings(u"enabledRecommendedFolders"_s);
    const auto lastReport = optionalRecord<BackupReport>(json, lastReportKey);
    const auto lastBackupTime = optionalDate(json, u"lastBackupTime"_s);
    if (const auto error = firstError(selectedDestination, customSources, enabledRecommendedFolders,
                                      lastReport, lastBackupTime))
        return std::unexpected(*error);
    return AppConfiguration{*selectedDestination, *customSources, *enabledRecommendedFolders, *lastReport,
                            *lastBackupTime};
}

} // namespace keelbright
