#include "Keelbright/screens/dashboard/Insight.h"

#include "KeelbrightCore/health/ElapsedDays.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <algorithm>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr double nearlyFull = 0.85;
constexpr double fairlyFull = 0.70;
constexpr double freshDays = 3;
constexpr double staleDays = 7;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Insights)
};

QString unknownValue()
{
    return u"—"_s;
}

Role fillColor(double usedFraction)
{
    if (usedFraction > nearlyFull)
        return Role::red;
    return usedFraction > fairlyFull ? Role::orange : Role::accent;
}

QString ageText(const QDateTime& time, const QDateTime& now)
{
    const qint64 days = wholeElapsedDays(time, now);
    if (days == 0)
        return Texts::tr("Today");
    if (days == 1)
        return Texts::tr("Yesterday");
    return Texts::tr("%1 days ago", nullptr, pluralNumber(days)).arg(QString::number(days));
}

Role ageColor(const QDateTime& time, const QDateTime& now)
{
    const double days = elapsedDays(time, now);
    if (days < freshDays)
        return Role::green;
    return days < staleDays ? Role::orange : Role::red;
}

QString usageText(const QList<AppInfo>& apps)
{
    const auto forgotten = std::ranges::count(apps, UsageCategory::forgotten, &AppInfo::usageCategory);
    if (forgotten == 0)
        return Texts::tr("No cleanup recommended");
    return forgotten == 1 ? Texts::tr("1 rarely used app found")
                          : Texts::tr("%n rarely used apps found", nullptr, pluralNumber(forgotten));
}

} // namespace

Insight Insights::storage(const std::optional<HealthScore>& score)
{
    Insight insight{Texts::tr("Storage"),    unknownValue(), Texts::tr("Scanning…"),
                    u"internaldrive.fill"_s, Role::accent,   Screen::storageBrowser};
    if (score) {
        insight.value = Texts::tr("%1 used").arg(score->diskUsedFormatted());
        insight.subtitle = Texts::tr("of %1 total").arg(score->diskTotalFormatted());
        insight.color = fillColor(score->diskUsedFraction());
    }
    return insight;
}

Insight Insights::lastBackup(const std::optional<QDateTime>& time, bool hasReport, const QDateTime& now)
{
    return {Texts::tr("Last Backup"),
            time ? ageText(*time, now) : Texts::tr("Never"),
            hasReport ? Texts::tr("Tap to view report") : Texts::tr("No backup yet"),
            u"arrow.clockwise.circle.fill"_s,
            time ? ageColor(*time, now) : Role::red,
            Screen::backupReport};
}

Insight Insights::junk(const std::optional<HealthScore>& score)
{
    return {Texts::tr("Junk"),
            score ? score->junkFormatted() : unknownValue(),
            Texts::tr("cached files found"),
            u"trash.fill"_s,
            Role::orange,
            Screen::junkCleaner};
}

Insight Insights::apps(const QList<AppInfo>& apps, bool isScanning)
{
    Insight insight{Texts::tr("Apps"),        unknownValue(), Texts::tr("Tap to analyse"),
                    u"app.badge.checkmark"_s, Role::purple,   Screen::appManager};
    if (!apps.isEmpty()) {
        insight.value = Texts::tr("%n apps", nullptr, pluralNumber(apps.size()));
        insight.subtitle = usageText(apps);
    }
    if (isScanning) {
        insight.value = Texts::tr("Scanning…");
        insight.subtitle = Texts::tr("Analysing usage…");
    }
    return insight;
}

} // namespace keelbright
