#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include <QJsonObject>
#include <QString>
#include <QUuid>

namespace keelbright {

/// The folder or volume that backups go to.
struct BackupDestination
{
    QUuid id;
    FileURL url;

    [[nodiscard]] QString displayName() const { return url.lastPathComponent(); }

    [[nodiscard]] QString path() const { return url.path(); }

    [[nodiscard]] QJsonObject toJson() const;
    [[nodiscard]] static Decoded<BackupDestination> fromJson(const JsonDecoder& json);
    friend bool operator==(const BackupDestination&, const BackupDestination&) = default;
};

} // namespace keelbright
