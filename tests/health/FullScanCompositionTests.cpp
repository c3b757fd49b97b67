#include "KeelbrightCore/health/FullScanComposition.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>
#include <utility>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using Category = ScanFinding::Category;
using Severity = ScanFinding::Severity;

namespace {

constexpr qint64 gibibyte = 1'073'741'824;
constexpr qint64 hundredMebibytes = 104'857'600;

JunkCategory junk(const QString& title, qint64 bytes)
{
    return {u"userLogs"_s,
            title,
            u"doc.text.fill"_s,
            {{.url = FileURL::fromPath(u"/Users/mira/"_s + title), .sizeBytes = bytes}}};
}

HealthScore scoreOfDisk(qint64 used, qint64 total)
{
    return {.grade = HealthScore::Grade::b,
            .points = 70,
            .detail = u"Backed up today."_s,
            .diskUsedBytes = used,
            .diskTotalBytes = total,
            .junkEstimateBytes = 0,
            .backupPoints = 40,
            .diskPoints = 15,
            .junkPoints = 15};
}

/// An application with that verdict, whatever its use.
AppInfo app(const QString& name, UsageCategory category, qint64 useCount)
{
    AppInfo info({.name = name, .useCount = useCount});
    info.usageCategory = category;
    info.usageDescription = u"All about "_s + name;
    return info;
}

/// The text of an action, to compare findings by.
QString textOf(const ScanFinding::Action& action)
{
    const auto* screen = std::get_if<ScanFinding::NavigateTo>(&action);
    return screen ? screen->screen : u"no screen"_s;
}

QString textOf(const ScanFinding& finding)
{
    return u"%1|%2|%3|%4|%5|%6"_s.arg(ScanFinding::rawValue(finding.category), finding.title, finding.detail,
                                      QString::number(finding.sizeBytes), textOf(finding.action),
                                      QString::number(std::to_underlying(finding.severity)));
}

class FullScanCompositionTest : public ::testing::Test
{
protected:
    [[nodiscard]] QList<ScanFinding> findings(const FullScanComposition::Sources& sources) const
    {
        return FullScanComposition::findings(sources, now);
    }

    /// The findings of one category.
    [[nodiscard]] QList<ScanFinding> findings(Category category,
                                              const FullScanComposition::Sources& sources) const
    {
        QList<ScanFinding> found = findings(sources);
        found.removeIf([&](const ScanFinding& finding) { return finding.category != category; });
        return found;
    }

    [[nodiscard]] QStringList titles(Category category, const FullScanComposition::Sources& sources) const
    {
        QStringList texts;
        for (const ScanFinding& finding : findings(category, sources))
            texts.append(finding.title);
        return texts;
    }

    [[nodiscard]] FullScanComposition::Sources withJunk(const QList<JunkCategory>& categories) const
    {
        return {categories, scoreOfDisk(0, 0), {}, now};
    }

    [[nodiscard]] FullScanComposition::Sources withApps(const QList<AppInfo>& apps) const
    {
        return {{}, scoreOfDisk(0, 0), apps, now};
    }

    [[nodiscard]] Severity severityOfJunk(qint64 bytes) const
    {
        return findings(Category::junk, withJunk({junk(u"Log Files"_s, bytes)})).value(0).severity;
    }

    /// The one finding on a disk, or "none".
    [[nodiscard]] QString storageText(qint64 used, qint64 total) const
    {
        const QList<ScanFinding> found = findings(Category::storage, {{}, scoreOfDisk(used, total), {}, now});
        EXPECT_LE(found.size(), 1);
        return found.isEmpty() ? u"none"_s : textOf(found.first());
    }

    /// The one finding on a backup that long ago, in milliseconds.
    [[nodiscard]] QString backupText(qint64 millisecondsAgo) const
    {
        return backupText(std::optional(now.addMSecs(-millisecondsAgo)));
    }

    [[nodiscard]] QString backupText(const std::optional<QDateTime>& lastBackup) const
    {
        const QList<ScanFinding> found = findings(Category::backup, {{}, scoreOfDisk(0, 0), {}, lastBackup});
        EXPECT_EQ(found.size(), 1);
        return textOf(found.value(0));
    }

    TestMac mac;
    QDateTime now = mac.clock()();
};

constexpr qint64 day = 86'400'000;

} // namespace

TEST_F(FullScanCompositionTest, aJunkCategoryBecomesAFinding)
{
    JunkCategory logs = junk(u"Log Files"_s, 12'000'000);
    logs.items.append({.url = FileURL::fromPath(u"/Users/mira/b"_s), .sizeBytes = 5'000'000});
    const QList<ScanFinding> found = findings(Category::junk, withJunk({logs}));
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(textOf(found.first()), u"Junk|Log Files|2 items taking up 17 MB|17000000|Junk Cleaner|0"_s);
}

TEST_F(FullScanCompositionTest, thePluralStaysForOneItem)
{
    const QList<ScanFinding> found = findings(Category::junk, withJunk({junk(u"Log Files"_s, 1)}));
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().detail, u"1 items taking up 1 byte"_s);
}

TEST_F(FullScanCompositionTest, junkOfExactlyAGibibyteIsMediumAndOneByteMoreIsHigh)
{
    EXPECT_EQ(severityOfJunk(gibibyte), Severity::medium);
    EXPECT_EQ(severityOfJunk(gibibyte + 1), Severity::high);
}

TEST_F(FullScanCompositionTest, junkOfExactlyAHundredMebibytesIsLowAndOneByteMoreIsMedium)
{
    EXPECT_EQ(severityOfJunk(hundredMebibytes), Severity::low);
    EXPECT_EQ(severityOfJunk(hundredMebibytes + 1), Severity::medium);
}

TEST_F(FullScanCompositionTest, theSixthCategoryHasNoFindingButItsBytesCount)
{
    QList<JunkCategory> categories;
    for (const qint64 bytes : {60, 50, 40, 30, 20, 10})
        categories.append(junk(QString::number(bytes), bytes));
    const FullScanReport report = FullScanComposition::report(withJunk(categories), now);
    EXPECT_EQ(titles(Category::junk, withJunk(categories)),
              (QStringList{u"60"_s, u"50"_s, u"40"_s, u"30"_s, u"20"_s}));
    EXPECT_EQ(report.totalReclaimableBytes, 210);
}

TEST_F(FullScanCompositionTest, anApplicationBecomesAFinding)
{
    const QList<ScanFinding> found =
        findings(Category::apps, withApps({app(u"Tidewater"_s, UsageCategory::forgotten, 1)}));
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(textOf(found.first()), u"Apps|Tidewater|All about Tidewater|0|App Manager|0"_s);
}

TEST_F(FullScanCompositionTest, forgottenApplicationsPassWhateverTheirUse)
{
    EXPECT_EQ(titles(Category::apps, withApps({app(u"a"_s, UsageCategory::forgotten, 12),
                                               app(u"b"_s, UsageCategory::forgotten, 0)})),
              (QStringList{u"a"_s, u"b"_s}));
}

TEST_F(FullScanCompositionTest, unknownApplicationsPassOnlyWithoutAnyUse)
{
    EXPECT_EQ(titles(Category::apps, withApps({app(u"a"_s, UsageCategory::unknown, 1),
                                               app(u"b"_s, UsageCategory::unknown, 0)})),
              QStringList{u"b"_s});
}

TEST_F(FullScanCompositionTest, applicationsOfAnyOtherKindNeverPass)
{
    EXPECT_EQ(titles(Category::apps, withApps({
                                         app(u"a"_s, UsageCategory::dailyDriver, 0),
                                         app(u"b"_s, UsageCategory::seasonal, 0),
                                         app(u"c"_s, UsageCategory::occasional, 0),
                                         app(u"d"_s, UsageCategory::new_, 0),
                                     })),
              QStringList());
}

TEST_F(FullScanCompositionTest, ofTenForgottenApplicationsTheFirstFiveInTheListAreFindings)
{
    QList<AppInfo> apps{app(u"used"_s, UsageCategory::dailyDriver, 9)};
    for (int i = 0; i < 10; ++i)
        apps.append(app(QString::number(i), UsageCategory::forgotten, 100 - 7 * i));
    EXPECT_EQ(titles(Category::apps, withApps(apps)), (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
}

TEST_F(FullScanCompositionTest, withoutABackupTheFindingIsHigh)
{
    EXPECT_EQ(backupText(std::nullopt),
              u"Backup|No backup on record|Your files have never been backed up.|0|Dashboard|2"_s);
}

TEST_F(FullScanCompositionTest, aBackupOfTodayIsCurrent)
{
    const QString current = u"Backup|Backup is current|Last backed up today.|0|Dashboard|0"_s;
    EXPECT_EQ(backupText(0), current);
    EXPECT_EQ(backupText(day - 1), current);
    EXPECT_EQ(backupText(1 - day), current);
}

TEST_F(FullScanCompositionTest, aBackupOfOneDayHasTheSingular)
{
    EXPECT_EQ(backupText(day), u"Backup|Backup is recent|Last backed up 1 day ago.|0|Dashboard|0"_s);
    EXPECT_EQ(backupText(2 * day - 1), u"Backup|Backup is recent|Last backed up 1 day ago.|0|Dashboard|0"_s);
}

TEST_F(FullScanCompositionTest, aBackupOfUpToThreeDaysIsRecent)
{
    EXPECT_EQ(backupText(2 * day), u"Backup|Backup is recent|Last backed up 2 days ago.|0|Dashboard|0"_s);
    EXPECT_EQ(backupText(3 * day), u"Backup|Backup is recent|Last backed up 3 days ago.|0|Dashboard|0"_s);
    EXPECT_EQ(backupText(4 * day - 1), u"Backup|Backup is recent|Last backed up 3 days ago.|0|Dashboard|0"_s);
}

TEST_F(FullScanCompositionTest, aBackupInTheFutureIsRecentWithANegativeNumber)
{
    EXPECT_EQ(backupText(-day), u"Backup|Backup is recent|Last backed up -1 days ago.|0|Dashboard|0"_s);
    EXPECT_EQ(backupText(-30 * day), u"Backup|Backup is recent|Last backed up -30 days ago.|0|Dashboard|0"_s);
}

TEST_F(FullScanCompositionTest, aBackupFromFourToFourteenDaysIsOverdueAndMedium)
{
    EXPECT_EQ(backupText(4 * day),
              u"Backup|Backup overdue|Last backed up 4 days ago. Consider backing up soon.|0|Dashboard|1"_s);
    EXPECT_EQ(backupText(14 * day),
              u"Backup|Backup overdue|Last backed up 14 days ago. Consider backing up soon.|0|Dashboard|1"_s);
    EXPECT_EQ(backupText(15 * day - 1),
              u"Backup|Backup overdue|Last backed up 14 days ago. Consider backing up soon.|0|Dashboard|1"_s);
}

TEST_F(FullScanCompositionTest, aBackupOfFifteenDaysAndMoreIsOverdueAndHigh)
{
    EXPECT_EQ(backupText(15 * day),
              u"Backup|Backup overdue|Last backed up 15 days ago. Consider backing up soon.|0|Dashboard|2"_s);
    EXPECT_EQ(
        backupText(1'500 * day),
        u"Backup|Backup overdue|Last backed up 1500 days ago. Consider backing up soon.|0|Dashboard|2"_s);
}

TEST_F(FullScanCompositionTest, aDiskExactlySeventyPercentFullIsNoFinding)
{
    EXPECT_EQ(storageText(700'000'000'000, 1'000'000'000'000), u"none"_s);
    EXPECT_EQ(storageText(700'000'000'001, 1'000'000'000'000),
              u"Storage|Disk is 70% full|700 GB used of 1 TB|700000000001|Storage Browser|1"_s);
}

TEST_F(FullScanCompositionTest, aDiskExactlyEightyFivePercentFullIsMediumAndOneByteMoreIsHigh)
{
    EXPECT_EQ(storageText(850'000'000'000, 1'000'000'000'000),
              u"Storage|Disk is 85% full|850 GB used of 1 TB|850000000000|Storage Browser|1"_s);
    EXPECT_EQ(storageText(850'000'000'001, 1'000'000'000'000),
              u"Storage|Disk is 85% full|850 GB used of 1 TB|850000000001|Storage Browser|2"_s);
}

TEST_F(FullScanCompositionTest, thePercentOfADiskIsCutNotRounded)
{
    EXPECT_TRUE(storageText(9'199, 10'000).startsWith(u"Storage|Disk is 91% full|"_s));
}

TEST_F(FullScanCompositionTest, aDiskOfUnknownSizeIsNoFinding)
{
    EXPECT_EQ(storageText(500, 0), u"none"_s);
}

TEST_F(FullScanCompositionTest, theMostSevereComesFirstAndAmongEqualsTheLargest)
{
    const qint64 disk = 300'000'000'000;
    QStringList texts;
    for (const ScanFinding& finding :
         findings({{junk(u"two gibibytes"_s, 2 * gibibyte), junk(u"half a gibibyte"_s, gibibyte / 2),
                    junk(u"a byte"_s, 1)},
                   scoreOfDisk(disk, disk),
                   {app(u"forgotten"_s, UsageCategory::forgotten, 1)},
                   now.addDays(-5)}))
        texts.append(finding.title);
    EXPECT_EQ(texts, (QStringList{u"Disk is 100% full"_s, u"two gibibytes"_s, u"half a gibibyte"_s,
                                  u"Backup overdue"_s, u"a byte"_s, u"forgotten"_s}));
}

TEST_F(FullScanCompositionTest, equalFindingsKeepTheOrderAppsBeforeBackup)
{
    QStringList texts;
    for (const ScanFinding& finding : findings(
             withApps({app(u"a"_s, UsageCategory::forgotten, 1), app(u"b"_s, UsageCategory::forgotten, 1)})))
        texts.append(finding.title);
    EXPECT_EQ(texts, (QStringList{u"a"_s, u"b"_s, u"Backup is current"_s}));
}

TEST_F(FullScanCompositionTest, withNothingElseToMentionThereIsStillTheBackup)
{
    const FullScanReport report = FullScanComposition::report({{}, scoreOfDisk(0, 0), {}, std::nullopt}, now);
    ASSERT_EQ(report.findings.size(), 1);
    EXPECT_EQ(report.findings.first().title, u"No backup on record"_s);
    EXPECT_EQ(report.totalReclaimableBytes, 0);
}

TEST_F(FullScanCompositionTest, theReportHasItsMomentAndTheScoreOfTheScan)
{
    const HealthScore score = scoreOfDisk(1, 2);
    const FullScanReport report = FullScanComposition::report({{}, score, {}, std::nullopt}, now);
    EXPECT_EQ(report.scannedAt, now);
    EXPECT_EQ(report.healthScore, score);
}

} // namespace keelbright::testing
