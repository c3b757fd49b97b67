#include "KeelbrightCore/backup/BackupReportWriter.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/support/Printing.h"
#include "tests/support/SampleReport.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class BackupReportWriterTest : public ::testing::Test
{
protected:
    [[nodiscard]] QStringList namesInReports()
    {
        QStringList names;
        const auto entries = mac.fileManager().contentsOfDirectory(reports, {});
        for (const DirectoryEntry& entry : entries.value())
            names.append(entry.url.lastPathComponent());
        names.sort();
        return names;
    }

    TestMac mac;
    FileURL reports = mac.makeFolder("Volumes/Anchor/Reports");
};

/// The lines of the Markdown from `heading` on, the heading included.
QString markdownFrom(const BackupReport& report, const QString& heading)
{
    const QString text = BackupReportWriter::generateMarkdown(report);
    return text.mid(text.indexOf(heading));
}

QString markdownLine(const BackupReport& report, const QString& prefix)
{
    const QStringList lines = BackupReportWriter::generateMarkdown(report).split(u'\n');
    for (const QString& line : lines) {
        if (line.startsWith(prefix))
            return line;
    }
    return {};
}

QStringList errorLines(int count)
{
    QStringList lines;
    for (int i = 1; i <= count; ++i)
        lines.append(u"Skip file %1: no"_s.arg(i));
    return lines;
}

} // namespace

TEST_F(BackupReportWriterTest, theMarkdownFollowsItsTemplate)
{
    EXPECT_EQ(BackupReportWriter::generateMarkdown(sampleReport()),
              u"# Keel Bright Backup Report\n"
              "\n"
              "**Date:** March 1, 2026 at 10:05:00\u202fAM\n"
              "**Duration:** 42.0s\n"
              "\n"
              "## Sources\n"
              "- `/Users/mira/Desktop`\n"
              "- `/Users/mira/Documents`\n"
              "\n"
              "## Destination\n"
              "`/Volumes/Anchor`\n"
              "\n"
              "## Summary\n"
              "\n"
              "| Metric | Value |\n"
              "|--------|-------|\n"
              "| Files Copied | 1234 |\n"
              "| Files Skipped | 5 |\n"
              "| Data Copied | 2.5 MB |\n"
              "| Errors | 0 |\n"
              "\n"
              "## Recovery Manifest\n"
              "`/Volumes/Anchor/Keelbright/Mira/Latest/recovery-manifest.json`\n"
              "\n"
              "## Skipped / Errors\n"
              "- _None_"_s);
}

TEST_F(BackupReportWriterTest, theJsonHasSortedKeys)
{
    BackupReport report = sampleReport();
    report.errors = {u"Skip \"a\".txt: no"_s};
    const auto written = BackupReportWriter::write(report, reports);
    ASSERT_TRUE(written.has_value());
    EXPECT_EQ(TestMac::read(written->jsonURL), QByteArray(R"({
    "bytesCopied": 2500000,
    "completedAt": "2026-03-01T09:05:42Z",
    "destinationPath": "/Volumes/Anchor",
    "errors": [
        "Skip \"a\".txt: no"
    ],
    "filesCopied": 1234,
    "filesSkipped": 5,
    "id": "0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10",
    "jobId": "7D1F0C52-8A3E-4F7B-B1D9-3C2E1F0A9B84",
    "manifestPath": "/Volumes/Anchor/Keelbright/Mira/Latest/recovery-manifest.json",
    "personalFilesPath": "/Volumes/Anchor/Keelbright/Mira/Latest/Personal Files",
    "sourcePaths": [
        "/Users/mira/Desktop",
        "/Users/mira/Documents"
    ],
    "startedAt": "2026-03-01T09:05:00Z"
}
)"));
}

TEST_F(BackupReportWriterTest, bothFilesCarryTheStampOfTheStart)
{
    const auto written = BackupReportWriter::write(sampleReport(), reports);
    ASSERT_TRUE(written.has_value());
    EXPECT_EQ(written->jsonURL, reports.appending(u"backup-report-20260301-090500.json"_s));
    EXPECT_EQ(written->mdURL, reports.appending(u"backup-report-20260301-090500.md"_s));
    EXPECT_EQ(namesInReports(),
              (QStringList{u"backup-report-20260301-090500.json"_s, u"backup-report-20260301-090500.md"_s}));
    EXPECT_EQ(TestMac::read(written->mdURL), BackupReportWriter::generateMarkdown(sampleReport()).toUtf8());
}

TEST_F(BackupReportWriterTest, theStampIsUtcWhileTheDateIsLocal)
{
    BackupReport report = sampleReport();
    report.startedAt = QDateTime(QDate(2026, 2, 28), QTime(23, 30, 5), utcZone);
    const auto written = BackupReportWriter::write(report, reports);
    ASSERT_TRUE(written.has_value());
    EXPECT_EQ(written->mdURL.lastPathComponent(), u"backup-report-20260228-233005.md"_s);
    EXPECT_EQ(markdownLine(report, u"**Date:**"_s), u"**Date:** March 1, 2026 at 12:30:05\u202fAM"_s);
    mac.setTimeZone("America/New_York");
    EXPECT_EQ(markdownLine(report, u"**Date:**"_s), u"**Date:** February 28, 2026 at 6:30:05\u202fPM"_s);
}

TEST_F(BackupReportWriterTest, theDateAndTheSizeFollowTheLocale)
{
    mac.setLocale(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(markdownLine(sampleReport(), u"**Date:**"_s), u"**Date:** 1. März 2026 um 10:05:00"_s);
    EXPECT_EQ(markdownLine(sampleReport(), u"| Data"_s), u"| Data Copied | 2,5 MB |"_s);
    EXPECT_EQ(markdownLine(sampleReport(), u"**Duration:**"_s), u"**Duration:** 42.0s"_s);
    EXPECT_EQ(markdownLine(sampleReport(), u"| Files Copied"_s), u"| Files Copied | 1234 |"_s);
}

TEST_F(BackupReportWriterTest, theDurationHasOneDigit)
{
    BackupReport report = sampleReport();
    const auto duration = [&](qint64 milliseconds) {
        report.completedAt = report.startedAt.addMSecs(milliseconds);
        return markdownLine(report, u"**Duration:**"_s);
    };
    EXPECT_EQ(duration(40), u"**Duration:** 0.0s"_s);
    EXPECT_EQ(duration(60), u"**Duration:** 0.1s"_s);
    EXPECT_EQ(duration(0), u"**Duration:** 0.0s"_s);
    EXPECT_EQ(duration(12'340), u"**Duration:** 12.3s"_s);
    EXPECT_EQ(duration(3'600'000), u"**Duration:** 3600.0s"_s);
    EXPECT_EQ(duration(250), u"**Duration:** 0.2s"_s);
    EXPECT_EQ(duration(-1500), u"**Duration:** -1.5s"_s);
}

TEST_F(BackupReportWriterTest, twentyFiveErrorsShowTwentyLinesAndTheirNumber)
{
    BackupReport report = sampleReport();
    report.errors = errorLines(25);
    EXPECT_EQ(markdownFrom(report, u"## Skipped"_s),
              u"## Skipped / Errors\n- "_s + errorLines(20).join(u"\n- "_s));
    EXPECT_EQ(markdownLine(report, u"| Errors"_s), u"| Errors | 25 |"_s);
    const auto written = BackupReportWriter::write(report, reports);
    ASSERT_TRUE(written.has_value());
    const auto back = BackupReport::fromJson(decodeJsonObject(TestMac::read(written->jsonURL)).value());
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(back->errors, errorLines(25));
}

TEST_F(BackupReportWriterTest, twentyErrorsShowAll)
{
    BackupReport report = sampleReport();
    report.errors = errorLines(20);
    EXPECT_EQ(markdownFrom(report, u"## Skipped"_s),
              u"## Skipped / Errors\n- "_s + errorLines(20).join(u"\n- "_s));
}

TEST_F(BackupReportWriterTest, aSingleErrorIsOneLine)
{
    BackupReport report = sampleReport();
    report.errors = errorLines(1);
    EXPECT_EQ(markdownFrom(report, u"## Skipped"_s), u"## Skipped / Errors\n- Skip file 1: no"_s);
}

TEST_F(BackupReportWriterTest, withoutSourcesThereIsOneEmptyLine)
{
    BackupReport report = sampleReport();
    report.sourcePaths.clear();
    EXPECT_TRUE(BackupReportWriter::generateMarkdown(report).contains(u"## Sources\n\n\n## Destination\n"_s));
}

TEST_F(BackupReportWriterTest, aFailedManifestStandsInBackticks)
{
    BackupReport report = sampleReport();
    report.manifestPath = u"Failed"_s;
    EXPECT_TRUE(markdownFrom(report, u"## Recovery Manifest"_s)
                    .startsWith(u"## Recovery Manifest\n`Failed`\n\n## Skipped / Errors\n"_s));
}

TEST_F(BackupReportWriterTest, ofRunsWithinOneSecondTheLastHasTheNameAndTheOthersAreKept)
{
    BackupReport report = sampleReport();
    for (const int run : {1, 2, 3}) {
        report.startedAt = sampleReport().startedAt.addMSecs(300 * run);
        report.filesCopied = run;
        const auto written = BackupReportWriter::write(report, reports);
        ASSERT_TRUE(written.has_value());
        EXPECT_EQ(written->jsonURL.lastPathComponent(), u"backup-report-20260301-090500.json"_s);
        EXPECT_EQ(written->mdURL.lastPathComponent(), u"backup-report-20260301-090500.md"_s);
    }
    EXPECT_EQ(namesInReports().size(), 6);
    const QList<std::pair<QString, QByteArray>> runs{{QString(), "3"}, {u"-2"_s, "1"}, {u"-3"_s, "2"}};
    for (const auto& [number, run] : runs) {
        const QString stem = u"backup-report-20260301-090500"_s + number;
        EXPECT_TRUE(
            TestMac::read(reports.appending(stem + u".md"_s)).contains("| Files Copied | " + run + " |"));
        EXPECT_TRUE(TestMac::read(reports.appending(stem + u".json"_s)).contains("\"filesCopied\": " + run));
    }
}

TEST_F(BackupReportWriterTest, anEarlierReportWithoutItsMarkdownIsKeptToo)
{
    mac.writeFile("Volumes/Anchor/Reports/backup-report-20260301-090500.json", "earlier");
    const auto written = BackupReportWriter::write(sampleReport(), reports);
    ASSERT_TRUE(written.has_value());
    EXPECT_EQ(written->mdURL.lastPathComponent(), u"backup-report-20260301-090500.md"_s);
    EXPECT_EQ(TestMac::read(reports.appending(u"backup-report-20260301-090500-2.json"_s)), "earlier");
}

TEST_F(BackupReportWriterTest, withoutTheFolderNothingIsWrittenAndTheErrorIsGiven)
{
    const auto written = BackupReportWriter::write(sampleReport(), mac.root().appending(u"Volumes/Gone"_s));
    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().localizedDescription(),
              u"“backup-report-20260301-090500.json” could not be written: it does not exist."_s);
    EXPECT_FALSE(mac.fileManager().fileExists(mac.root().appending(u"Volumes/Gone"_s)).exists);
}

TEST_F(BackupReportWriterTest, aMarkdownThatCantBeWrittenLeavesTheJson)
{
    mac.makeFolder("Volumes/Anchor/Reports/backup-report-20260301-090500.md");
    const auto written = BackupReportWriter::write(sampleReport(), reports);
    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().name, u"backup-report-20260301-090500.md"_s);
    EXPECT_EQ(namesInReports(),
              (QStringList{u"backup-report-20260301-090500.json"_s, u"backup-report-20260301-090500.md"_s}));
    EXPECT_TRUE(
        mac.fileManager().fileExists(reports.appending(u"backup-report-20260301-090500.md"_s)).isDirectory);
}

TEST_F(BackupReportWriterTest, aJsonThatCantBeWrittenLeavesNoMarkdown)
{
    mac.makeFolder("Volumes/Anchor/Reports/backup-report-20260301-090500.json");
    const auto written = BackupReportWriter::write(sampleReport(), reports);
    ASSERT_FALSE(written.has_value());
    EXPECT_EQ(written.error().name, u"backup-report-20260301-090500.json"_s);
    EXPECT_EQ(namesInReports(), (QStringList{u"backup-report-20260301-090500.json"_s}));
}

TEST_F(BackupReportWriterTest, aHundredThousandErrorLinesComeBackFromTheFile)
{
    BackupReport report = sampleReport();
    report.errors = errorLines(100'000);
    const auto written = BackupReportWriter::write(report, reports);
    ASSERT_TRUE(written.has_value());
    const auto back = BackupReport::fromJson(decodeJsonObject(TestMac::read(written->jsonURL)).value());
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(*back, report);
}

} // namespace keelbright::testing
