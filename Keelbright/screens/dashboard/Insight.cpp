#include "Keelbright/screens/dashboard/Insight.h"

#include "KeelbrightCore/health/ElapsedDays.h"

#include <QCoreApplication>
#include <algorithm>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

constexpr double nearlyFull = 0.85;
constexpr double fairlyFull = 0.70;
constexpr double freshDays = 3;
constexpr double staleDays = 7;

QString tr(const char* text)
{
    return QCoreApplication::translate("Insights", text);
}

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
        return tr("Today");
    if (days == 1)
        return tr("Yesterday");
    return tr("%1 days ago").arg(QString::number(days));
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
        return tr("No cleanup recommended");
    const QString text = forgotten == 1 ? tr("%1 rarely used app found") : tr("%1 rarely used apps found");
    return text.arg(QString::number(forgotten));
}

} // namespace

Insight Insights::storage(const std::optional<HealthScore>& score)
{
    Insight insight{tr("Storage"),           unknownValue(), tr("Scanning…"),
                    u"internaldrive.fill"_s, Role::accent,   Screen::storageBrowser};
    if (score) {
        insight.value = tr("%1 used").arg(score->diskUsedFormatted());
        insight.subtitle = tr("of %1 total").arg(score->diskTotalFormatted());
        insight.color = fillColor(score->diskUsedFraction());
    }
    return insight;
}

Insight Insights::lastBackup(const std::optional<QDateTime>& time, bool hasReport, const QDateTime& now)
{
    return {tr("Last Backup"),
            time ? ageText(*time, now) : tr("Never"),
            hasReport ? tr("Tap to view report") : tr("No backup yet"),
            u"arrow.clockwise.circle.fill"_s,
            time ? ageColor(*time, now) : Role::red,
            Screen::backupReport};
}

Insight Insights::junk(const std::optional<HealthScore>& score)
{
    return {tr("Junk"),
            score ? score->junkFormatted() : unknownValue(),
            tr("cached files found"),
            u"trash.fill"_s,
            Role::orange,
            Screen::junkCleaner};
}

Insight Insights::apps(const QList<AppInfo>& apps, bool isScanning)
{
    Insight insight{tr("Apps"),   unknownValue(),    tr("Tap to analyse"), u"app.badge.checkmark"_s,
                    Role::purple, Screen::appManager};
    if (!apps.isEmpty()) {
        insight.value = tr("%1 apps").arg(QString::number(apps.size()));
        insight.subtitle = usageText(apps);
    }
    if (isScanning) {
        insight.value = tr("Scanning…");
        insight.subtitle = tr("Analysing usage…");
    }
    return insight;
}

} // namespace keelbright
