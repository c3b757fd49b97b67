#include "KeelbrightCore/backup/ErrorLine.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"
#include "tests/support/SampleReport.h"

#include <cerrno>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

using Kind = ActivityEntry::Kind;

constexpr int minute = 60;
constexpr int hour = 60 * minute;
constexpr int day = 24 * hour;

void playScanIdle(Stage& stage)
{
    stage.goTo(Screen::scanResults);
}

void playScanBusy(Stage& stage)
{
    stage.mira.populate();
    stage.goTo(Screen::scanResults);
    stage.files.holdNextLookAt(stage.mac.home().appending(u".Trash"_s));
    stage.press(u"Start Full Scan"_s);
    EXPECT_TRUE(stage.files.waitUntilHeld());
    Stage::turnFrames();
}

void playScanReport(Stage& stage)
{
    stage.mira.populate();
    stage.files.freeBytes = 61'000'000'000;
    stage.goTo(Screen::scanResults);
    stage.press(u"Start Full Scan"_s);
    stage.settle();
}

void playScanTidy(Stage& stage)
{
    stage.mira.addPersonalFiles();
    stage.mira.addBackupDrive();
    stage.start();
    stage.chooseDrive();
    stage.backUp();
    stage.goTo(Screen::scanResults);
    stage.press(u"Start Full Scan"_s);
    stage.settle();
}

void log(Stage& stage, int secondsAgo, Kind kind, const QString& title, const QString& detail, qint64 bytes)
{
    stage.activityStore.append({.id = QUuid::createUuid(),
                                .timestamp = stage.mac.clock()().addSecs(-secondsAgo),
                                .kind = kind,
                                .title = title,
                                .detail = detail,
                                .bytesAffected = bytes,
                                .itemCount = 1});
}

/// The log of three weeks, the oldest entry first.
void logThreeWeeks(Stage& stage)
{
    const QString cleaned = u"Junk files moved to Trash"_s;
    const QString saved = u"Backup completed"_s;
    log(stage, 19 * day, Kind::backup, saved, u"3020 files · 14.2 GB"_s, 14'200'000'000);
    log(stage, 9 * day, Kind::appRemove, u"Old Scanner removed"_s, u"App bundle moved to Trash"_s, 0);
    log(stage, 9 * day - hour, Kind::clean, cleaned, u"23 items across 6 categories"_s, 4'440'000'000);
    log(stage, 4 * day, Kind::organise, u"Files organised"_s,
        u"48 files sorted into subfolders in Downloads"_s, 2'150'000'000);
    log(stage, 4 * day - hour, Kind::backup, u"Backup completed with warnings"_s, u"112 files · 640 MB"_s,
        640'000'000);
    log(stage, day, Kind::scan, u"Full scan finished"_s, u"7 findings"_s, 0);
    log(stage, day - 2 * hour, Kind::appRemove,
        u"Sketchbook for Everyone Who Would Rather Draw Than Write, Student Edition 2026 removed"_s,
        u"App + 12 leftover files moved to Trash"_s, 52'000'000);
    log(stage, 3 * hour, Kind::clean, cleaned, u"1 item across 6 categories"_s, 704'200'000);
    log(stage, 20 * minute, Kind::backup, saved, u"41 files · 98.5 MB"_s, 98'500'000);
}

void playLogEmpty(Stage& stage)
{
    stage.goTo(Screen::activityLog);
}

void playLogFull(Stage& stage)
{
    logThreeWeeks(stage);
    stage.goTo(Screen::activityLog);
}

void playLogNoMatch(Stage& stage)
{
    log(stage, hour, Kind::backup, u"Backup completed"_s, u"41 files · 98.5 MB"_s, 98'500'000);
    stage.goTo(Screen::activityLog);
    stage.pick(u"Junk Clean"_s);
}

void playReportEmpty(Stage& stage)
{
    stage.goTo(Screen::backupReport);
}

void playReport(Stage& stage)
{
    stage.mira.populate();
    stage.start();
    stage.chooseDrive();
    stage.backUp();
    stage.goTo(Screen::backupReport);
}

void playReportErrors(Stage& stage)
{
    BackupReport report = sampleReport();
    report.personalFilesPath += u"/and some more folders, so that the path is longer than the card is wide"_s;
    for (int i = 1; i <= 40; ++i) {
        const QString name = u"IMG_%1.jpg"_s.arg(4100 + i);
        report.errors.append(skipLine(name, FileError::fromCode(FileError::Operation::read, name, EACCES)));
    }
    AppConfiguration configuration;
    configuration.lastReport = report;
    configuration.lastBackupTime = report.completedAt;
    stage.configStore.save(configuration);
    stage.goTo(Screen::backupReport);
}

void playRestoreEmpty(Stage& stage)
{
    stage.goTo(Screen::restoreBrowser);
}

void openBackup(Stage& stage, const FileURL& root)
{
    stage.goTo(Screen::restoreBrowser);
    stage.folderChooser.willChoose({root});
    stage.press(u"Open Backup Folder"_s);
    stage.settle();
}

void playRestore(Stage& stage)
{
    const QByteArray device = "Volumes/Backup Drive/Keelbright/Mira's Mac/";
    stage.mac.makeFolder(device + "Latest");
    for (const char* name : {"2026-02-27-1805", "2026-02-20-0915", "2025-12-24-1200", "2024-05-01-0930"})
        stage.mac.makeFolder(device + "Snapshots/" + name);
    openBackup(stage, stage.mac.root().appendingNative(device));
}

void playRestoreWithoutSnapshots(Stage& stage)
{
    openBackup(stage, stage.mac.makeFolder("Volumes/Backup Drive/Keelbright/Mira's Mac/Latest")
                          .deletingLastPathComponent());
}

void playRecovery(Stage& stage)
{
    stage.goTo(Screen::recovery);
}

void playRecoveryLoaded(Stage& stage)
{
    stage.mira.populate();
    stage.start();
    stage.chooseDrive();
    stage.backUp();
    stage.goTo(Screen::recovery);
    stage.fileChooser.willChoose(FileURL::fromPath(stage.state().lastReport()->manifestPath));
    stage.press(u"Load Manifest…"_s);
    stage.settle();
}

void playRecoveryError(Stage& stage)
{
    stage.goTo(Screen::recovery);
    stage.fileChooser.willChoose(
        stage.mac.writeFile("Users/mira/recovery-manifest.json", "{\"deviceName\": 3}"));
    stage.press(u"Load Manifest…"_s);
    stage.settle();
}

void playSettings(Stage& stage)
{
    stage.goTo(Screen::settings);
}

void playSettingsChosen(Stage& stage)
{
    stage.mira.populate();
    stage.start();
    stage.chooseDrive();
    stage.state().addCustomSource(stage.mac.makeFolder("Users/mira/Documents/Projects"));
    stage.goTo(Screen::settings);
}

void playSettingsDriveAway(Stage& stage)
{
    playSettingsChosen(stage);
    stage.state().setIsDestinationAway(true);
    Stage::turnFrames();
}

} // namespace

QList<ScreenState> reviewStates()
{
    return {
        {"scan-results", "idle", playScanIdle},
        {"scan-results", "busy", playScanBusy},
        {"scan-results", "report", playScanReport, true},
        {"scan-results", "tidy", playScanTidy},
        {"activity-log", "empty", playLogEmpty},
        {"activity-log", "full", playLogFull, true},
        {"activity-log", "no-match", playLogNoMatch},
        {"report", "empty", playReportEmpty},
        {"report", "finished", playReport, true},
        {"report", "errors", playReportErrors},
        {"restore-browser", "empty", playRestoreEmpty},
        {"restore-browser", "snapshots", playRestore, true},
        {"restore-browser", "no-snapshots", playRestoreWithoutSnapshots},
        {"recovery", "guide", playRecovery},
        {"recovery", "loaded", playRecoveryLoaded, true},
        {"recovery", "error", playRecoveryError},
        {"settings", "fresh", playSettings},
        {"settings", "chosen", playSettingsChosen},
        {"settings", "drive-away", playSettingsDriveAway},
    };
}

} // namespace keelbright::testing
