#include "KeelbrightCore/backup/BackupReport.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

namespace keelbright {

using namespace Qt::StringLiterals;

double BackupReport::durationSeconds() const
{
    return static_cast<double>(startedAt.msecsTo(completedAt)) / 1000.0;
}

QString BackupReport::copiedSizeFormatted() const
{
    return ByteCountFormatter::string(bytesCopied);
}

QJsonObject BackupReport::toJson() const
{
    return {
        {u"id"_s, uuidText(id)},
        {u"jobId"_s, uuidText(jobId)},
        {u"startedAt"_s, DateFormatter::iso8601(startedAt)},
        {u"completedAt"_s, DateFormatter::iso8601(completedAt)},
        {u"sourcePaths"_s, QJsonArray::fromStringList(sourcePaths)},
        {u"destinationPath"_s, destinationPath},
        {u"personalFilesPath"_s, personalFilesPath},
        {u"filesCopied"_s, filesCopied},
        {u"filesSkipped"_s, filesSkipped},
        {u"bytesCopied"_s, bytesCopied},
        {errorsKey, QJsonArray::fromStringList(errors)},
        {u"manifestPath"_s, manifestPath},
    };
}

Decoded<BackupReport> BackupReport::fromJson(const JsonDecoder& json)
{
    const auto id = json.uuid(u"id"_s);
    const auto jobId = json.uuid(u"jobId"_s);
    const auto startedAt = json.date(u"startedAt"_s);
    const auto completedAt = json.date(u"completedAt"_s);
    const auto sourcePaths = json.strings(u"sourcePaths"_s);
    const auto destinationPath = json.string(u"destinationPath"_s);
    const auto personalFilesPath = json.string(u"personalFilesPath"_s);
    const auto filesCopied = json.integer(u"filesCopied"_s);
    const auto filesSkipped = json.integer(u"filesSkipped"_s);
    const auto bytesCopied = json.integer(u"bytesCopied"_s);
    const auto errors = json.strings(errorsKey);
    const auto manifestPath = json.string(u"manifestPath"_s);
    if (const auto error =
            firstError(id, jobId, startedAt, completedAt, sourcePaths, destinationPath, personalFilesPath,
                       filesCopied, filesSkipped, bytesCopied, errors, manifestPath))
        return std::unexpected(*error);
    return BackupReport{*id,
                        *jobId,
                        *startedAt,
                        *completedAt,
                        *sourcePaths,
                        *destinationPath,
                        *personalFilesPath,
                        *filesCopied,
                        *filesSkipped,
                        *bytesCopied,
                        *errors,
                        *manifestPath};
}

} // namespace keelbright
