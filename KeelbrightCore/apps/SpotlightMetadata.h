#pragma once

#include "KeelbrightCore/platform/files/FileURL.h"
#include "KeelbrightCore/platform/system/UniqueFunction.h"

#include <QByteArray>
#include <QDateTime>
#include <QMap>
#include <QString>
#include <optional>

// What the metadata index knows of one application. Internal to the application scanner; on its
// own so that its parsers can be fed alone.

namespace keelbright::AppScanner {

/// Nothing is known: no dates and a count of 0.
struct SpotlightMeta
{
    std::optional<QDateTime> lastUsed; ///< UTC
    qint64 useCount = 0;
    std::optional<QDateTime> dateAdded; ///< UTC

    friend bool operator==(const SpotlightMeta&, const SpotlightMeta&) = default;
};

using MetadataReceiver = UniqueFunction<void(SpotlightMeta)>;

/// Asks the metadata tool, at most 32 of which run at once for all scans together, and returns at
/// once. `receive` is called once, as a step of a scan, when the tool has ended; never, where it never
/// ends. Where there is no such tool, it prints no text or more than a helper may, or memory runs out for
/// its answer, nothing is known. Throws where memory runs out before it is asked.
void spotlightMetadata(const FileURL& bundle, MetadataReceiver receive);

/// Reads everything that the metadata tool printed.
[[nodiscard]] SpotlightMeta metadataFromOutput(const QByteArray& output);

/// The "key = value" lines, both trimmed of blanks and tabs. A line without " = " and a value of
/// "(null)" are left out; of two equal keys the last one holds. A map, because a hash of Qt's ends the
/// program where memory runs out for it.
[[nodiscard]] QMap<QString, QString> parseMdls(const QString& text);

/// A date of the form "2026-03-01 09:05:00 +0000", the seconds whole or with exactly six further
/// digits (kept to the millisecond). Each field needs its full width: nothing else is a date.
[[nodiscard]] std::optional<QDateTime> parseDate(const std::optional<QString>& text);

} // namespace keelbright::AppScanner
