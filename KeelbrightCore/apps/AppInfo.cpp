#include "KeelbrightCore/apps/AppInfo.h"

#include "KeelbrightCore/platform/text/DateFormatter.h"
#include "KeelbrightCore/platform/text/PluralNumber.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr qint64 daysSinceUnknownDate = 9999;
constexpr qint64 daysPerMonth = 30;
constexpr qint64 daysPerYear = 365;

/// Whole days, cut towards zero; negative for a date in the future.
qint64 days(const QDateTime& date, const QDateTime& now)
{
    const double seconds = static_cast<double>(date.msecsTo(now)) / 1000.0;
    return static_cast<qint64>(seconds / secondsPerDay);
}

QString decimal(qint64 number)
{
    return QString::number(number);
}

/// Rounded to a whole number, halves away from zero.
QString rounded(double number)
{
    return QString::number(std::round(number), 'f', 0);
}

struct Verdict
{
    UsageCategory category;
    QString description;
};

/// One judgement, from the dates as whole days.
class Analysis
{
    Q_DECLARE_TR_FUNCTIONS(AppInfo)

public:
    Analysis(const AppFacts& facts, const QDateTime& now)
        : m_hasUsageRecord(facts.hasUsageRecord)
        , m_useCount(facts.useCount)
        , m_daysSinceAdded(facts.dateAdded ? days(*facts.dateAdded, now) : daysSinceUnknownDate)
    {
        if (facts.lastUsedDate)
            m_daysSinceUsed = days(*facts.lastUsedDate, now);
    }

    /// The first rule that matches decides: their order is part of the rules.
    [[nodiscard]] Verdict analyze() const
    {
        if (m_daysSinceAdded <= 29)
            return {UsageCategory::new_, newDescription()};
        if (!m_hasUsageRecord)
            return {UsageCategory::unknown, unknownDescription()};
        if (m_useCount == 0)
            return {UsageCategory::forgotten, tr("Never opened.")};
        if (m_useCount <= 2)
            return {UsageCategory::forgotten, hardlyOpenedDescription()};
        if (!m_daysSinceUsed)
            return {UsageCategory::unknown, unknownDescription()};
        if (*m_daysSinceUsed <= 13)
            return {UsageCategory::dailyDriver, dailyDescription(*m_daysSinceUsed)};
        return analyzeDormancy(*m_daysSinceUsed);
    }

    static QString daysAgo(qint64 count)
    {
        // Not "%n": a date in the future gives a negative number.
        return (count == 1 ? tr("%1 day ago") : tr("%1 days ago", nullptr, pluralNumber(count)))
            .arg(decimal(count));
    }

private:
    /// For an application that was used, but not within the last two weeks.
    [[nodiscard]] Verdict analyzeDormancy(qint64 daysSinceUsed) const
    {
        const double monthsInstalled = std::max(static_cast<double>(m_daysSinceAdded) / 30.0, 1.0);
        const double perMonth = static_cast<double>(m_useCount) / monthsInstalled;
        const QString uses = decimal(m_useCount);
        const qint64 months = daysSinceUsed / daysPerMonth;
        const QString monthsSinceUsed = decimal(months);
        if (daysSinceUsed >= 61 && perMonth >= 4.0) {
            return {UsageCategory::seasonal,
                    tr("Used heavily before (%1 times, ~%2/mo). Dormant for %3 months.", nullptr,
                       pluralNumber(months))
                        .arg(uses, rounded(perMonth), monthsSinceUsed)};
        }
        if (daysSinceUsed >= 91 && perMonth >= 1.5) {
            return {UsageCategory::seasonal, tr("Used regularly (%1 times total). Dormant for %2 months.",
                                                nullptr, pluralNumber(months))
                                                 .arg(uses, monthsSinceUsed)};
        }
        if (daysSinceUsed >= 91) {
            // The unrounded number decides on the plural: 1.6 months read "2 month".
            const QString text = monthsInstalled < 2.0
                                     ? tr("Opened %1 times in %2 month. Last used %3 months ago.")
                                     : tr("Opened %1 times in %2 months. Last used %3 months ago.", nullptr,
                                          pluralNumber(months));
            return {UsageCategory::forgotten, text.arg(uses, rounded(monthsInstalled), monthsSinceUsed)};
        }
        const QString text =
            daysSinceUsed >= 31
                ? tr("Opened %1 times total. Last used %2 days ago.", nullptr, pluralNumber(daysSinceUsed))
                : tr("Opened %1 times. Last used %2 days ago.", nullptr, pluralNumber(daysSinceUsed));
        return {UsageCategory::occasional, text.arg(uses, decimal(daysSinceUsed))};
    }

    [[nodiscard]] QString newDescription() const
    {
        const QString text = m_daysSinceAdded == 1 ? tr("Installed %1 day ago — too early to judge.")
                                                   : tr("Installed %1 days ago — too early to judge.",
                                                        nullptr, pluralNumber(m_daysSinceAdded));
        return text.arg(decimal(m_daysSinceAdded));
    }

    [[nodiscard]] QString unknownDescription() const
    {
        return tr("Opened %n times — usage timing unknown.", nullptr, pluralNumber(m_useCount));
    }

    [[nodiscard]] QString hardlyOpenedDescription() const
    {
        const QString text =
            m_useCount == 1 ? tr("Opened only once, last %1.") : tr("Opened only twice, last %1.");
        return text.arg(m_daysSinceUsed ? daysAgo(*m_daysSinceUsed) : tr("a while ago"));
    }

    [[nodiscard]] QString dailyDescription(qint64 daysSinceUsed) const
    {
        return tr("Used %1 times — last opened %2.", nullptr, pluralNumber(m_useCount))
            .arg(decimal(m_useCount), daysSinceUsed == 0 ? tr("today") : daysAgo(daysSinceUsed));
    }

    bool m_hasUsageRecord;
    qint64 m_useCount;
    qint64 m_daysSinceAdded;
    std::optional<qint64> m_daysSinceUsed;
};

} // namespace

const QList<UsageCategory>& allUsageCategories()
{
    static const QList<UsageCategory> categories{UsageCategory::dailyDriver, UsageCategory::seasonal,
                                                 UsageCategory::occasional,  UsageCategory::forgotten,
                                                 UsageCategory::new_,        UsageCategory::unknown};
    return categories;
}

QString rawValue(UsageCategory category)
{
    switch (category) {
    case UsageCategory::dailyDriver:
        return QStringLiteral(QT_TRANSLATE_NOOP("UsageCategory", "Active"));
    case UsageCategory::seasonal:
        return QStringLiteral(QT_TRANSLATE_NOOP("UsageCategory", "Was Important"));
    case UsageCategory::occasional:
        return QStringLiteral(QT_TRANSLATE_NOOP("UsageCategory", "Occasional"));
    case UsageCategory::forgotten:
        return QStringLiteral(QT_TRANSLATE_NOOP("UsageCategory", "Rarely Used"));
    case UsageCategory::new_:
        return QStringLiteral(QT_TRANSLATE_NOOP("UsageCategory", "New"));
    case UsageCategory::unknown:
        return QStringLiteral(QT_TRANSLATE_NOOP("UsageCategory", "Unknown"));
    }
    Q_UNREACHABLE();
}

int sortPriority(UsageCategory category)
{
    switch (category) {
    case UsageCategory::forgotten:
        return 0;
    case UsageCategory::occasional:
        return 1;
    case UsageCategory::seasonal:
        return 2;
    case UsageCategory::unknown:
        return 3;
    case UsageCategory::new_:
        return 4;
    case UsageCategory::dailyDriver:
        return 5;
    }
    Q_UNREACHABLE();
}

AppInfo::AppInfo(AppFacts facts, const QDateTime& now)
    : AppFacts(std::move(facts))
{
    Verdict verdict = Analysis(*this, now).analyze();
    usageCategory = verdict.category;
    usageDescription = std::move(verdict.description);
}

QString AppInfo::lastUsedFormatted(const QDateTime& now) const
{
    if (!hasUsageRecord)
        return Analysis::tr("Unknown");
    if (!lastUsedDate)
        return Analysis::tr("Never");
    const qint64 count = days(*lastUsedDate, now);
    if (count == 0)
        return Analysis::tr("Today");
    if (count == 1)
        return Analysis::tr("Yesterday");
    if (count <= 29)
        return Analysis::daysAgo(count);
    if (count < daysPerYear) {
        const int months = pluralNumber(count / daysPerMonth);
        return months > 1 ? Analysis::tr("%n months ago", nullptr, months) : Analysis::tr("1 month ago");
    }
    const int years = pluralNumber(count / daysPerYear);
    return years > 1 ? Analysis::tr("%n years ago", nullptr, years) : Analysis::tr("1 year ago");
}

QString AppInfo::installedFormatted() const
{
    if (!dateAdded)
        return Analysis::tr("Unknown");
    return DateFormatter::string(*dateAdded, DateFormatter::Style::medium, DateFormatter::Style::none);
}

} // namespace keelbright
