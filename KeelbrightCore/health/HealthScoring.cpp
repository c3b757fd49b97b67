#include "KeelbrightCore/health/HealthScoring.h"

#include "KeelbrightCore/health/ElapsedDays.h"
#include "KeelbrightCore/platform/text/ByteCountFormatter.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <QStringList>
#include <algorithm>
#include <span>

namespace keelbright::HealthScoring {

namespace {

constexpr double bytesPerGibibyte = 1'073'741'824.0;

/// The points for a number below the limit.
struct Step
{
    double limit;
    int points;
};

/// The points of the first step whose limit is above the number; 0 if there is none.
int pointsOf(double number, std::span<const Step> steps)
{
    const auto step = std::ranges::find_if(steps, [&](const Step& one) { return number < one.limit; });
    return step == steps.end() ? 0 : step->points;
}

double inGibibytes(qint64 bytes)
{
    return static_cast<double>(bytes) / bytesPerGibibyte;
}

double fractionOf(qint64 used, qint64 total)
{
    return static_cast<double>(used) / static_cast<double>(total);
}

class Detail
{
    Q_DECLARE_TR_FUNCTIONS(HealthScore)

public:
    static QString ofBackup(const std::optional<QDateTime>& lastBackup, const QDateTime& now)
    {
        if (!lastBackup)
            return tr("No backup on record.");
        const qint64 days = wholeElapsedDays(*lastBackup, now);
        if (days == 0)
            return tr("Backed up today.");
        if (days == 1)
            return tr("Backed up yesterday.");
        if (days <= 6)
            return tr("Last backup %1 days ago.", nullptr, pluralNumber(days)).arg(QString::number(days));
        return tr("No backup in %n days — consider backing up soon.", nullptr, pluralNumber(days));
    }

    static QString ofJunk(qint64 bytes)
    {
        return tr("%1 of cached junk found.").arg(ByteCountFormatter::string(bytes));
    }

    static QString ofDisk(qint64 percent)
    {
        return tr("Disk is %1% full — freeing space is recommended.").arg(QString::number(percent));
    }
};

} // namespace

int backupScore(const std::optional<QDateTime>& lastBackup, const QDateTime& now)
{
    if (!lastBackup)
        return 0;
    static constexpr Step steps[] = {{1, 40}, {3, 35}, {7, 25}, {14, 15}, {30, 8}};
    return pointsOf(elapsedDays(*lastBackup, now), steps);
}

int diskScore(qint64 usedBytes, qint64 totalBytes)
{
    constexpr int neutral = 15;
    if (totalBytes <= 0)
        return neutral;
    static constexpr Step steps[] = {{0.50, 30}, {0.65, 24}, {0.75, 18}, {0.85, 10}, {0.92, 4}};
    return pointsOf(fractionOf(usedBytes, totalBytes), steps);
}

int junkScore(qint64 junkBytes)
{
    static constexpr Step steps[] = {{0.25, 30}, {0.5, 25}, {1, 20}, {2, 14}, {5, 8}, {10, 3}};
    return pointsOf(inGibibytes(junkBytes), steps);
}

HealthScore::Grade gradeFor(int points)
{
    if (points >= 85)
        return HealthScore::Grade::a;
    if (points >= 70)
        return HealthScore::Grade::b;
    if (points >= 55)
        return HealthScore::Grade::c;
    return points >= 40 ? HealthScore::Grade::d : HealthScore::Grade::f;
}

QString detailText(HealthScore::Grade, qint64 junkBytes, const std::optional<QDateTime>& lastBackup,
                   qint64 diskUsedBytes, qint64 diskTotalBytes, const QDateTime& now)
{
    QStringList sentences{Detail::ofBackup(lastBackup, now)};
    if (inGibibytes(junkBytes) >= 0.1)
        sentences.append(Detail::ofJunk(junkBytes));
    if (diskTotalBytes > 0) {
        const auto percent = static_cast<qint64>(fractionOf(diskUsedBytes, diskTotalBytes) * 100);
        if (percent >= 85)
            sentences.append(Detail::ofDisk(percent));
    }
    return sentences.join(u' ');
}

HealthScore score(const Measurements& measured, const QDateTime& now)
{
    const qint64 total = measured.diskTotalBytes;
    const qint64 used = std::max<qint64>(total - measured.diskFreeBytes, 0);
    const int backupPoints = backupScore(measured.lastBackup, now);
    const int diskPoints = diskScore(used, total);
    const int junkPoints = junkScore(measured.junkBytes);
    const int points = backupPoints + diskPoints + junkPoints;
    const HealthScore::Grade grade = gradeFor(points);
    return {
        .grade = grade,
        .points = points,
        .detail = detailText(grade, measured.junkBytes, measured.lastBackup, used, total, now),
        .diskUsedBytes = used,
        .diskTotalBytes = total,
        .junkEstimateBytes = measured.junkBytes,
        .backupPoints = backupPoints,
        .diskPoints = diskPoints,
        .junkPoints = junkPoints,
    };
}

} // namespace keelbright::HealthScoring
