#include "KeelbrightCore/health/FullScanComposition.h"

#include "KeelbrightCore/health/ElapsedDays.h"
#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/ByteSum.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

namespace keelbright::FullScanComposition {

using namespace Qt::StringLiterals;

using Severity = ScanFinding::Severity;

namespace {

constexpr qsizetype maximumOfAKind = 5;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FullScanService)
};

QString decimal(qint64 number)
{
    return QString::number(number);
}

Severity junkSeverity(qint64 bytes)
{
    constexpr qint64 gibibyte = 1'073'741'824;
    constexpr qint64 hundredMebibytes = 104'857'600;
    if (bytes > gibibyte)
        return Severity::high;
    return bytes > hundredMebibytes ? Severity::medium : Severity::low;
}

ScanFinding junkFinding(const JunkCategory& category)
{
    const qint64 bytes = category.totalBytes();
    return {
        .category = ScanFinding::Category::junk,
        .title = category.title,
        .detail = Texts::tr("%n items taking up %1", nullptr, pluralNumber(category.items.size()))
                      .arg(ByteCountFormatter::string(bytes)),
        .sizeBytes = bytes,
        .action = ScanFinding::NavigateTo{u"Junk Cleaner"_s},
        .severity = junkSeverity(bytes),
    };
}

bool isWorthALook(const AppInfo& app)
{
    return app.usageCategory == UsageCategory::forgotten ||
           (app.usageCategory == UsageCategory::unknown && app.useCount == 0);
}

ScanFinding appFinding(const AppInfo& app)
{
    return {
        .category = ScanFinding::Category::apps,
        .title = app.name,
        .detail = app.usageDescription,
        .sizeBytes = 0,
        .action = ScanFinding::NavigateTo{u"App Manager"_s},
        .severity = Severity::low,
    };
}

ScanFinding backupFinding(const std::optional<QDateTime>& lastBackupTime, const QDateTime& now)
{
    const auto finding = [](const QString& title, const QString& detail, Severity severity) {
        return ScanFinding{
            .category = ScanFinding::Category::backup,
            .title = title,
            .detail = detail,
            .sizeBytes = 0,
            .action = ScanFinding::NavigateTo{u"Dashboard"_s},
            .severity = severity,
        };
    };
    if (!lastBackupTime) {
        return finding(Texts::tr("No backup on record"), Texts::tr("Your files have never been backed up."),
                       Severity::high);
    }
    const qint64 days = wholeElapsedDays(*lastBackupTime, now);
    if (days == 0)
        return finding(Texts::tr("Backup is current"), Texts::tr("Last backed up today."), Severity::low);
    if (days <= 3) {
        // Not "%n": a clock that was set back gives a negative number.
        const QString text = days == 1
                                 ? Texts::tr("Last backed up %1 day ago.")
                                 : Texts::tr("Last backed up %1 days ago.", nullptr, pluralNumber(days));
        return finding(Texts::tr("Backup is recent"), text.arg(decimal(days)), Severity::low);
    }
    return finding(
        Texts::tr("Backup overdue"),
        Texts::tr("Last backed up %n days ago. Consider backing up soon.", nullptr, pluralNumber(days)),
        days <= 14 ? Severity::medium : Severity::high);
}

std::optional<ScanFinding> storageFinding(const HealthScore& score)
{
    // 0 where the size of the disk is unknown.
    const double fraction = score.diskUsedFraction();
    if (!(fraction > 0.70))
        return std::nullopt;
    return ScanFinding{
        .category = ScanFinding::Category::storage,
        .title = Texts::tr("Disk is %1% full").arg(decimal(static_cast<qint64>(fraction * 100))),
        .detail = Texts::tr("%1 used of %2").arg(score.diskUsedFormatted(), score.diskTotalFormatted()),
        .sizeBytes = score.diskUsedBytes,
        .action = ScanFinding::NavigateTo{u"Storage Browser"_s},
        .severity = fraction > 0.85 ? Severity::high : Severity::medium,
    };
}

} // namespace

QList<ScanFinding> findings(const Sources& sources, const QDateTime& now)
{
    QList<ScanFinding> found;
    for (const JunkCategory& category :
         sources.categories.first(std::min(maximumOfAKind, sources.categories.size())))
        found.append(junkFinding(category));
    qsizetype appCount = 0;
    for (const AppInfo& app : sources.apps) {
        if (appCount == maximumOfAKind)
            break;
        if (isWorthALook(app)) {
            found.append(appFinding(app));
            ++appCount;
        }
    }
    found.append(backupFinding(sources.lastBackupTime, now));
    if (const auto storage = storageFinding(sources.score))
        found.append(*storage);
    std::ranges::stable_sort(found, std::ranges::greater(), [](const ScanFinding& finding) {
        return std::pair(finding.severity, finding.sizeBytes);
    });
    return found;
}

FullScanReport report(const Sources& sources, const QDateTime& now)
{
    return {
        .scannedAt = now,
        .findings = findings(sources, now),
        .totalReclaimableBytes = sumOfBytes(sources.categories, &JunkCategory::totalBytes),
        .healthScore = sources.score,
    };
}

} // namespace keelbright::FullScanComposition
