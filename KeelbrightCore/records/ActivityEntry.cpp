#include "KeelbrightCore/records/ActivityEntry.h"

#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QCoreApplication>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr double minute = 60;
constexpr double hour = 60 * minute;
constexpr double day = 24 * hour;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ActivityEntry)
};

QString number(double value)
{
    return QString::number(static_cast<qint64>(value));
}

Decoded<ActivityEntry::Kind> kindFromJson(const JsonDecoder& json)
{
    const auto text = json.string(u"kind"_s);
    if (!text)
        return std::unexpected(text.error());
    const auto kind = ActivityEntry::kindFromRawValue(*text);
    if (!kind)
        return std::unexpected(json.error(u"kind"_s, Texts::tr("is not a known kind")));
    return *kind;
}

} // namespace

const QList<ActivityEntry::Kind>& ActivityEntry::allKinds()
{
    static const QList<Kind> kinds{Kind::backup, Kind::clean, Kind::organise, Kind::appRemove, Kind::scan};
    return kinds;
}

QString ActivityEntry::rawValue(Kind kind)
{
    switch (kind) {
    case Kind::backup:
        return QStringLiteral(QT_TRANSLATE_NOOP("ActivityEntry", "Backup"));
    case Kind::clean:
        return QStringLiteral(QT_TRANSLATE_NOOP("ActivityEntry", "Junk Clean"));
    case Kind::organise:
        return QStringLiteral(QT_TRANSLATE_NOOP("ActivityEntry", "Organise"));
    case Kind::appRemove:
        return QStringLiteral(QT_TRANSLATE_NOOP("ActivityEntry", "App Removed"));
    case Kind::scan:
        return QStringLiteral(QT_TRANSLATE_NOOP("ActivityEntry", "Full Scan"));
    }
    Q_UNREACHABLE();
}

std::optional<ActivityEntry::Kind> ActivityEntry::kindFromRawValue(const QString& text)
{
    for (const Kind kind : allKinds()) {
        if (rawValue(kind) == text)
            return kind;
    }
    return std::nullopt;
}

QString ActivityEntry::icon(Kind kind)
{
    switch (kind) {
    case Kind::backup:
        return u"arrow.clockwise.circle.fill"_s;
    case Kind::clean:
        return u"trash.fill"_s;
    case Kind::organise:
        return u"folder.badge.gearshape"_s;
    case Kind::appRemove:
        return u"app.badge.minus"_s;
    case Kind::scan:
        return u"magnifyingglass.circle.fill"_s;
    }
    Q_UNREACHABLE();
}

QString ActivityEntry::color(Kind kind)
{
    switch (kind) {
    case Kind::backup:
        return u"blue"_s;
    case Kind::clean:
        return u"orange"_s;
    case Kind::organise:
        return u"teal"_s;
    case Kind::appRemove:
        return u"purple"_s;
    case Kind::scan:
        return u"green"_s;
    }
    Q_UNREACHABLE();
}

QString ActivityEntry::formattedBytes() const
{
    return bytesAffected > 0 ? ByteCountFormatter::string(bytesAffected) : QString();
}

QString ActivityEntry::relativeTime(const QDateTime& now) const
{
    const double elapsed = static_cast<double>(timestamp.msecsTo(now)) / 1000.0;
    if (elapsed < minute)
        return Texts::tr("Just now");
    if (elapsed < hour)
        return Texts::tr("%1m ago").arg(number(elapsed / minute));
    if (elapsed < day)
        return Texts::tr("%1h ago").arg(number(elapsed / hour));
    // Full days back, not days of the calendar.
    if (elapsed < 2 * day)
        return Texts::tr("Yesterday");
    if (elapsed < 7 * day)
        return Texts::tr("%n days ago", nullptr, static_cast<int>(elapsed / day));
    return DateFormatter::string(timestamp, DateFormatter::Style::medium, DateFormatter::Style::none);
}

QJsonObject ActivityEntry::toJson() const
{
    return {
        {u"id"_s, uuidText(id)},     {u"timestamp"_s, DateFormatter::iso8601(timestamp)},
        {u"kind"_s, rawValue(kind)}, {u"title"_s, title},
        {u"detail"_s, detail},       {u"bytesAffected"_s, bytesAffected},
        {u"itemCount"_s, itemCount},
    };
}

Decoded<ActivityEntry> ActivityEntry::fromJson(const JsonDecoder& json)
{
    const auto id = json.uuid(u"id"_s);
    const auto timestamp = json.date(u"timestamp"_s);
    const auto kind = kindFromJson(json);
    const auto title = json.string(u"title"_s);
    const auto detail = json.string(u"detail"_s);
    const auto bytesAffected = json.integer(u"bytesAffected"_s);
    const auto itemCount = json.integer(u"itemCount"_s);
    if (const auto error = firstError(id, timestamp, kind, title, detail, bytesAffected, itemCount))
        return std::unexpected(*error);
    return ActivityEntry{*id, *timestamp, *kind, *title, *detail, *bytesAffected, *itemCount};
}

} // namespace keelbright
