#include "KeelbrightCore/records/AppConfiguration.h"

#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QJsonDocument>

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

/// Puts `value`, an indented text of its own, in the place of the null of `key` at the top of `json`.
/// Line breaks stand between values only, so that nothing but a key at the top follows four spaces.
QByteArray withValue(const QByteArray& json, const QByteArray& key, const QByteArray& value)
{
    constexpr QByteArrayView indentation = "    ";
    constexpr QByteArrayView null = "null";
    const QByteArray name = '\n' + indentation.toByteArray() + '"' + key + "\": ";
    const qsizetype place = json.indexOf(name + null.toByteArray()) + name.size();
    QByteArray text;
    text.reserve(json.size() + value.size() + value.size() / 8); // for the indentation
    text.append(QByteArrayView(json).first(place));
    QByteArrayView rest = QByteArrayView(value).chopped(1);
    for (qsizetype end = rest.indexOf('\n'); end >= 0; end = rest.indexOf('\n')) {
        text.append(rest.first(end + 1)).append(indentation);
        rest = rest.sliced(end + 1);
    }
    return text.append(rest).append(QByteArrayView(json).sliced(place + null.size()));
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
        json.insert(u"lastReport"_s, lastReport->toJson());
    if (lastBackupTime)
        json.insert(u"lastBackupTime"_s, DateFormatter::iso8601(*lastBackupTime));
    return json;
}

QByteArray AppConfiguration::toJsonText() const
{
    AppConfiguration settings = *this;
    settings.lastReport.reset();
    QJsonObject json = settings.toJson();
    if (!lastReport)
        return QJsonDocument(json).toJson(QJsonDocument::Indented);
    json.insert(u"lastReport"_s, QJsonValue::Null);
    return withValue(QJsonDocument(json).toJson(QJsonDocument::Indented), "lastReport",
                     lastReport->toJsonText());
}

Decoded<AppConfiguration> AppConfiguration::fromJson(const JsonDecoder& json)
{
    const auto selectedDestination = optionalRecord<BackupDestination>(json, u"selectedDestination"_s);
    const auto customSources = sourcesFromJson(json, u"customSources"_s);
    const auto enabledRecommendedFolders = json.strings(u"enabledRecommendedFolders"_s);
    const auto lastReport = optionalRecord<BackupReport>(json, u"lastReport"_s);
    const auto lastBackupTime = optionalDate(json, u"lastBackupTime"_s);
    if (const auto error = firstError(selectedDestination, customSources, enabledRecommendedFolders,
                                      lastReport, lastBackupTime))
        return std::unexpected(*error);
    return AppConfiguration{*selectedDestination, *customSources, *enabledRecommendedFolders, *lastReport,
                            *lastBackupTime};
}

} // namespace keelbright
