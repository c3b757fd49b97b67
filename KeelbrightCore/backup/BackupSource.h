#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include <QJsonObject>
#include <QString>
#include <QUuid>

namespace keelbright {

/// One folder to back up.
struct BackupSource
{
    QUuid id;
    FileURL url;
    bool isEnabled = true;

    [[nodiscard]] QString displayName() const { return url.lastPathComponent(); }

    /// Symbolic icon key, by the folder's name.
    [[nodiscard]] QString icon() const;

    [[nodiscard]] QJsonObject toJson() const;
    [[nodiscard]] static Decoded<BackupSource> fromJson(const JsonDecoder& json);
    friend bool operator==(const BackupSource&, const BackupSource&) = default;
};

} // namespace keelbright
