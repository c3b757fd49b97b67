#include "Keelbright/widgets/Progress.h"
#include "KeelbrightCore/check/ChecksumSpool.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

void openWithDrive(Stage& stage)
{
    stage.mira.addBackupDrive();
    stage.start();
    stage.chooseDrive();
    stage.openCheck();
}

void startCheck(Stage& stage)
{
    openWithDrive(stage);
    stage.press(u"Start Check"_s);
}

/// Of copies on Mira's drive.
CheckReport checkOf(const Stage& stage, qint64 copies)
{
    CheckReport report = sampleCheck(copies);
    report.deviceFolder = stage.mira.backupDrive().appending(u"Keelbright/Miras Mac"_s);
    report.personalFiles = report.deviceFolder.appending(u"Latest/Personal Files"_s);
    return report;
}

CheckReport soundCheck(const Stage& stage)
{
    CheckReport report = checkOf(stage, 41'230);
    report.checksums = ChecksumSpool::create();
    report.checksums->add({QByteArray(32, 'x'), "Latest/Personal Files/a"});
    return report;
}

void end(Stage& stage, const CheckReport& report)
{
    stage.copyCheck.end(report);
    stage.settle();
}

void playReady(Stage& stage)
{
    openWithDrive(stage);
}

void playNoDrive(Stage& stage)
{
    stage.openCheck();
}

void playDuringBackup(Stage& stage)
{
    openWithDrive(stage);
    stage.state().engine().setIsRunning(true);
    Stage::turnFrames();
}

void playRunning(Stage& stage)
{
    startCheck(stage);
    CheckProgress& progress = stage.copyCheck.progress();
    progress.setTotal(41'230, 512'000'000'000);
    progress.setPhase(CheckProgress::Phase::reading);
    progress.beginFile("IMG_4117.jpg");
    progress.addBytes(186'000'000'000);
    for (int i = 0; i < 14'832; ++i)
        progress.endFile();
    stage.waitUntil([&] { return stage.texts().contains(u"IMG_4117.jpg"_s); });
    Stage::turnFrames();
}

void playTimeLeft(Stage& stage)
{
    startCheck(stage);
    CheckProgress& progress = stage.copyCheck.progress();
    progress.setTotal(41'230, 512'000'000'000);
    progress.setPhase(CheckProgress::Phase::reading);
    progress.beginFile("IMG_4117.jpg");
    const auto* ring = stage.screen().findChild<RingProgress*>();
    constexpr double half = 0.5; // of what one look adds
    for (int look = 1; look <= 4; ++look) {
        stage.steadyNow += std::chrono::minutes(5);
        progress.addBytes(30'000'000'000);
        for (int i = 0; i < 2'400; ++i)
            progress.endFile();
        stage.waitUntil([&] { return ring->fraction() > (look - half) * 30 / 512; });
    }
    Stage::turnFrames();
}

void playCancelling(Stage& stage)
{
    playRunning(stage);
    stage.press(u"Cancel Check"_s);
}

void playSound(Stage& stage)
{
    startCheck(stage);
    end(stage, soundCheck(stage));
}

void playChanged(Stage& stage)
{
    startCheck(stage);
    CheckReport report = soundCheck(stage);
    report.add(CopyVerdict::same, -290);
    report.add(CopyVerdict::changedSince, 212);
    report.add(CopyVerdict::onlyOnDrive, 78);
    report.add(CopyVerdict::notBackedUp, 1'204);
    report.isFromDrive = false;
    end(stage, report);
}

void playFaults(Stage& stage)
{
    startCheck(stage);
    CheckReport report = soundCheck(stage);
    addDamaged(report, u"IMG_4117.jpg"_s);
    addDamaged(report, u"Garden diary 1961.odt"_s);
    addUnreadable(report, u"Summer in the archipelago.mov"_s);
    report.add(CopyVerdict::same, -12);
    report.add(CopyVerdict::changedSince, 12);
    end(stage, report);
}

void playLongNames(Stage& stage)
{
    startCheck(stage);
    CheckReport report = soundCheck(stage);
    addDamaged(report, u"Pictures/"_s + QString::fromLatin1(longName));
    addUnreadable(report, QString::fromLatin1(longName) + u"/"_s + QString::fromLatin1(longName));
    end(stage, report);
}

void playManyFaults(Stage& stage)
{
    startCheck(stage);
    CheckReport report = checkOf(stage, 1'000);
    for (int i = 0; i < 1'000; ++i)
        addUnreadable(report, u"Pictures/IMG_%1.jpg"_s.arg(i));
    end(stage, report);
}

void playEmpty(Stage& stage)
{
    startCheck(stage);
    CheckReport report = checkOf(stage, 0);
    report.add(CopyVerdict::notBackedUp, 3'020);
    end(stage, report);
}

void playPulled(Stage& stage)
{
    startCheck(stage);
    CheckReport report = checkOf(stage, 14'832);
    report.copies = 41'230;
    report.end = CheckReport::End::driveGone;
    end(stage, report);
}

void playFailed(Stage& stage)
{
    startCheck(stage);
    CheckReport report;
    report.end = CheckReport::End::failed;
    report.error = FileError::fromCode(FileError::Operation::opened, u"Backup Drive"_s, ENOENT);
    end(stage, report);
}

void playList(Stage& stage)
{
    openWithDrive(stage);
    stage.fileChooser.willChoose(stage.mira.backupDrive().appending(u"Keelbright/Miras Mac.sha256"_s));
    stage.press(u"Use a List of Checksums…"_s);
    CheckReport report = checkOf(stage, 41'230);
    report.isAgainstList = true;
    report.checked = 41'229;
    report.add(CopyVerdict::same, -6);
    report.add(CopyVerdict::changedSince, 5);
    report.add(CopyVerdict::onlyOnDrive, 1); // on the drive, but not in the list
    report.unknownLines = 2;
    end(stage, report);
}

void playSaved(Stage& stage)
{
    playSound(stage);
    stage.fileChooser.willChoose(stage.mira.backupDrive().appending(u"Miras Mac.sha256"_s));
    stage.press(u"Save Checksums…"_s);
    stage.settle();
}

void playNotSaved(Stage& stage)
{
    playSound(stage);
    stage.fileChooser.willChoose(stage.mira.backupDrive().appending(u"gone/Miras Mac.sha256"_s));
    stage.press(u"Save Checksums…"_s);
    stage.settle();
}

} // namespace

QList<ScreenState> checkStates()
{
    return {
        {"check", "ready", playReady},
        {"check", "no-drive", playNoDrive},
        {"check", "during-backup", playDuringBackup},
        {"check", "running", playRunning, true},
        {"check", "time-left", playTimeLeft},
        {"check", "cancelling", playCancelling},
        {"check", "sound", playSound, true},
        {"check", "changed", playChanged},
        {"check", "faults", playFaults, true},
        {"check", "long-names", playLongNames},
        {"check", "many-faults", playManyFaults},
        {"check", "empty", playEmpty},
        {"check", "pulled", playPulled},
        {"check", "failed", playFailed},
        {"check", "list", playList},
        {"check", "saved", playSaved},
        {"check", "not-saved", playNotSaved},
    };
}

} // namespace keelbright::testing
