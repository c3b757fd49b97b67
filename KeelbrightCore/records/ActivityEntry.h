#pragma once

#include "KeelbrightCore/platform/formats/JsonDecoding.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QUuid>
#include <optional>

namespace keelbright {

/// One line of the activity log.
struct ActivityEntry
{
    enum class Kind { backup, clean, organise, appRemove, scan };

    QUuid id;
    QDateTime timestamp; ///< UTC
    Kind kind = Kind::backup;
    QString title;
    QString detail;
    qint64 bytesAffected = 0; ///< 0 where there is no size to show
    qint64 itemCount = 0;

    [[nodiscard]] static const QList<Kind>& allKinds();
    [[nodiscard]] static QString rawValue(Kind kind);
    [[nodiscard]] static std::optional<Kind> kindFromRawValue(const QString& text);
    /// Symbolic icon key.
    [[nodiscard]] static QString icon(Kind kind);
    /// A plain colour name; screens turn it into a colour.
    [[nodiscard]] static QString color(Kind kind);

    /// Empty where `bytesAffected` is not above 0.
    [[nodiscard]] QString formattedBytes() const;
    /// "Just now", "5m ago", "Yesterday"…, seen from `now`.
    [[nodiscard]] QString relativeTime(const QDateTime& now) const;

    [[nodiscard]] QJsonObject toJson() const;
    [[nodiscard]] static Decoded<ActivityEntry> fromJson(const JsonDecoder& json);
    friend bool operator==(const ActivityEntry&, const ActivityEntry&) = default;
};

} // namespace keelbright
