#include "Keelbright/screens/review/ActivityLogModel.h"

#include "Keelbright/state/StoredTexts.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QHash>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// The labels of the days of the local calendar. Kept, because most entries share their day with
/// another one.
class DayLabels
{
public:
    explicit DayLabels(const QDateTime& now)
        : m_today(now.toLocalTime().date())
    {}

    [[nodiscard]] QString label(const QDateTime& timestamp)
    {
        const QDate day = timestamp.toLocalTime().date();
        if (day == m_today)
            return ActivityLogModel::tr("Today");
        if (day == m_today.addDays(-1))
            return ActivityLogModel::tr("Yesterday");
        QString& label = m_labels[day];
        if (label.isEmpty())
            label =
                DateFormatter::string(timestamp, DateFormatter::Style::medium, DateFormatter::Style::none);
        return label;
    }

private:
    QDate m_today;
    QHash<QDate, QString> m_labels;
};

Role hue(ActivityEntry::Kind kind)
{
    static const QHash<QString, Role> hues{
        {u"blue"_s, Role::accent},   {u"orange"_s, Role::orange}, {u"teal"_s, Role::teal},
        {u"purple"_s, Role::purple}, {u"green"_s, Role::green},
    };
    return hues.value(ActivityEntry::color(kind));
}

} // namespace

QList<ActivityDay> grouped(const QList<ActivityEntry>& entries, const QDateTime& now)
{
    DayLabels labels(now);
    QList<ActivityDay> days;
    QHash<QString, qsizetype> places;
    for (const ActivityEntry& entry : entries) {
        const QString label = labels.label(entry.timestamp);
        const auto place = places.constFind(label);
        if (place != places.constEnd()) {
            days[*place].entries.append(entry);
            continue;
        }
        places.insert(label, days.size());
        days.append({label, {entry}});
    }
    return days;
}

void ActivityLogModel::setEntries(const QList<ActivityEntry>& entries, const QDateTime& now)
{
    beginResetModel();
    m_now = now;
    m_days = grouped(entries, now);
    m_rows.clear();
    m_rows.reserve(entries.size() + m_days.size());
    for (qsizetype day = 0; day < m_days.size(); ++day) {
        m_rows.append({day, -1});
        for (qsizetype entry = 0; entry < m_days.at(day).entries.size(); ++entry)
            m_rows.append({day, entry});
    }
    endResetModel();
}

int ActivityLogModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

ListRow ActivityLogModel::rowAt(int row) const
{
    const Row place = m_rows.at(row);
    const ActivityEntry& entry = m_days.at(place.day).entries.at(place.entry);
    const Role color = hue(entry.kind);
    ListRow shown;
    shown.picture = ListRow::Picture::disc;
    shown.symbol = ActivityEntry::icon(entry.kind);
    shown.symbolColor = color;
    shown.title = StoredTexts::shownTitle(entry.title);
    shown.aside = entry.relativeTime(m_now);
    shown.detail = StoredTexts::shownDetail(entry.detail);
    shown.capsule = entry.formattedBytes();
    shown.capsuleColor = color;
    return shown;
}

QString ActivityLogModel::titleAt(int row) const
{
    const Row place = m_rows.at(row);
    return StoredTexts::shownTitle(m_days.at(place.day).entries.at(place.entry).title);
}

QString ActivityLogModel::headerAt(int row) const
{
    const Row place = m_rows.at(row);
    return place.entry < 0 ? m_days.at(place.day).label : QString();
}

} // namespace keelbright
