#pragma once

#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include <QDateTime>
#include <QJsonObject>
#include <QStringList>
#include <QUuid>

namespace keelbright {

/// The outcome of a finished run.
struct BackupReport
{
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
    /// `toJson` as indented text in UTF-8. The text of the report that was asked last is kept: a run
    /// writes it to the drive, and from then on every change of a setting writes it again. Any thread.
    [[nodiscard]] QByteArray toJsonText() const;
    [[nodiscard]] static Decoded<BackupReport> fromJson(const JsonDecoder& json);
    friend bool operator==(const BackupReport&, const BackupReport&) = default;
};

} // namespace keelbright
