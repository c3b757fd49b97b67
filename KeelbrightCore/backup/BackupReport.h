#pragma once

#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include <QDateTime>
#include <QJsonObject>
#include <QLatin1StringView>
#include <QStringList>
#include <QUuid>

namespace keelbright {

/// The outcome of a finished run.
struct BackupReport
{
    /// The key of `errors` in `toJson`.
    static constexpr QLatin1StringView errorsKey{"errors"};

    QUuid id;
    QUuid jobId;
    QDateTime startedAt;     ///< UTC; when the run began
    QDateTime completedAt;   ///< UTC
    QStringList sourcePaths; ///< every source of the job, disabled ones too
    QString destinationPath; ///< the chosen folder
    QString personalFilesPath;
    qint64 filesCopied = 0;
    qint64 filesSkipped = 0;
    qint64 bytesCopied = 0;
    QStringList errors;
    QString manifestPath; ///< or the literal "Failed"

    [[nodiscard]] double durationSeconds() const;
    [[nodiscard]] QString copiedSizeFormatted() const;

    [[nodiscard]] QJsonObject toJson() const;
    [[nodiscard]] static Decoded<BackupReport> fromJson(const JsonDecoder& json);
    friend bool operator==(const BackupReport&, const BackupReport&) = default;
};

} // namespace keelbright
