#pragma once

#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include <QDateTime>
#include <QJsonObject>
#include <QMap>
#include <QStringList>

namespace keelbright {

/// What the machine looked like at backup time.
struct BackupManifest
{
    QString appVersion;
    QString deviceName;
    QString macOSVersion;
    QDateTime backupDate; ///< UTC
    QStringList sourceFolders;
    QString destinationPath;
    QStringList installedApps;
    QString shellInfo;
    QMap<QString, bool> dotfilesPresent;
    QString notes;

    [[nodiscard]] QJsonObject toJson() const;
    [[nodiscard]] static Decoded<BackupManifest> fromJson(const JsonDecoder& json);
    friend bool operator==(const BackupManifest&, const BackupManifest&) = default;
};

} // namespace keelbright
