#include "KeelbrightCore/backup/BackupManifest.h"

#include "KeelbrightCore/platform/text/DateFormatter.h"

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

Decoded<QMap<QString, bool>> flagsFromJson(const JsonDecoder& json, const QString& key)
{
    const auto object = json.object(key);
    if (!object)
        return std::unexpected(object.error());
    QMap<QString, bool> flags;
    for (const QString& name : object->keys()) {
        const auto flag = object->boolean(name);
        if (!flag)
            return std::unexpected(flag.error());
        flags.insert(name, *flag);
    }
    return flags;
}

} // namespace

QJsonObject BackupManifest::toJson() const
{
    QJsonObject dotfiles;
    for (auto entry = dotfilesPresent.cbegin(); entry != dotfilesPresent.cend(); ++entry)
        dotfiles.insert(entry.key(), entry.value());
    return {
        {u"appVersion"_s, appVersion},
        {u"deviceName"_s, deviceName},
        {u"macOSVersion"_s, macOSVersion},
        {u"backupDate"_s, DateFormatter::iso8601(backupDate)},
        {u"sourceFolders"_s, QJsonArray::fromStringList(sourceFolders)},
        {u"destinationPath"_s, destinationPath},
        {u"installedApps"_s, QJsonArray::fromStringList(installedApps)},
        {u"shellInfo"_s, shellInfo},
        {u"dotfilesPresent"_s, dotfiles},
        {u"notes"_s, notes},
    };
}

Decoded<BackupManifest> BackupManifest::fromJson(const JsonDecoder& json)
{
    const auto appVersion = json.string(u"appVersion"_s);
    const auto deviceName = json.string(u"deviceName"_s);
    const auto macOSVersion = json.string(u"macOSVersion"_s);
    const auto backupDate = json.date(u"backupDate"_s);
    const auto sourceFolders = json.strings(u"sourceFolders"_s);
    const auto destinationPath = json.string(u"destinationPath"_s);
    const auto installedApps = json.strings(u"installedApps"_s);
    const auto shellInfo = json.string(u"shellInfo"_s);
    const auto dotfilesPresent = flagsFromJson(json, u"dotfilesPresent"_s);
    const auto notes = json.string(u"notes"_s);
    if (const auto error = firstError(appVersion, deviceName, macOSVersion, backupDate, sourceFolders,
                                      destinationPath, installedApps, shellInfo, dotfilesPresent, notes))
        return std::unexpected(*error);
    return BackupManifest{*appVersion,      *deviceName,    *macOSVersion, *backupDate,      *sourceFolders,
                          *destinationPath, *installedApps, *shellInfo,    *dotfilesPresent, *notes};
}

} // namespace keelbright
