// What a check says of copies that nothing has happened to, and of originals that went on living.

#include "tests/check/CheckTestCase.h"
#include "tests/support/TemporaryVolume.h"
#include "tests/support/TmpfsMount.h"

#include <filesystem>

namespace keelbright {
namespace {

using testing::content;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using OriginalsCheckTests = testing::CheckTestCase;

TEST_F(OriginalsCheckTests, allCopiesAreTheSameRightAfterABackup)
{
    write("a.txt", "some text");
    write("empty", "");
    write("folder/deep/er/large.bin", content(5'000'003));
    backUp();
    const CheckReport report = check();
    EXPECT_EQ(report.end, CheckReport::End::complete);
    EXPECT_EQ(counts(report), (Counts{{"same", 3}}));
    EXPECT_EQ(report.copies, 3);
    EXPECT_EQ(report.checked, 3);
    EXPECT_THAT(report.findings, IsEmpty());
    EXPECT_EQ(report.personalFiles, run.latest("Personal Files"));
    const CheckProgressValues values = progress.values();
    EXPECT_EQ(values.files, 3);
    EXPECT_EQ(values.checkedFiles, 3);
    EXPECT_EQ(values.bytes, 5'000'012);
    EXPECT_EQ(values.readBytes, 5'000'012);
    EXPECT_EQ(values.faults, 0);
}

TEST_F(OriginalsCheckTests, aDriveWithoutCopiesHasNoneAndEverythingIsNew)
{
    write("a.txt", "text");
    write("node_modules/b.txt", "left out");
    write(".hidden", "left out");
    write("c.dmg", "left out");
    const CheckReport report = check();
    EXPECT_EQ(report.end, CheckReport::End::complete);
    EXPECT_EQ(counts(report), (Counts{{"not backed up", 1}}));
    EXPECT_EQ(report.copies, 0);
}

TEST_F(OriginalsCheckTests, aDestinationThatIsMissingCantBeChecked)
{
    CheckJob missing = job();
    missing.destination = run.mac.root().appendingNative("Volumes/Nowhere");
    const CheckReport report = CopyCheck::run(missing, progress);
    EXPECT_EQ(report.end, CheckReport::End::failed);
    ASSERT_TRUE(report.error.has_value());
    EXPECT_EQ(report.error->localizedDescription(),
              QStringLiteral("“Nowhere” could not be opened: it does not exist."));
}

TEST_F(OriginalsCheckTests, countsWhatHasChangedAtTheSourceAsNoFault)
{
    write("grown", "1234");
    write("edited", "1234");
    write("removed", "1234");
    write("same", "1234");
    backUp();
    write("grown", "12345");
    write("edited", "4321");
    write("new", "1234");
    ASSERT_EQ(::unlink(original("removed").nativePath().constData()), 0);
    const CheckReport report = check();
    EXPECT_EQ(counts(report),
              (Counts{{"same", 1}, {"changed", 2}, {"only on drive", 1}, {"not backed up", 1}}));
    EXPECT_THAT(report.findings, IsEmpty());
}

TEST_F(OriginalsCheckTests, anOriginalThatWasOnlyTouchedIsTheSame)
{
    write("a", "1234");
    backUp();
    setTimes(original("a"), 2'000'000'000, 2'000'000'000);
    EXPECT_EQ(counts(check()), (Counts{{"same", 1}}));
}

TEST_F(OriginalsCheckTests, anOlderFileInThePlaceOfTheOriginalIsAChange)
{
    write("a", "1234");
    backUp();
    write("older", "4321");
    setTimes(original("older"), 1'000'000'000, 1'000'000'000);
    ASSERT_EQ(::rename(original("older").nativePath().constData(), original("a").nativePath().constData()),
              0);
    EXPECT_EQ(counts(check()), (Counts{{"changed", 1}}));
}

TEST_F(OriginalsCheckTests, aFolderInThePlaceOfAnOriginalIsAChange)
{
    write("a", "1234");
    backUp();
    ASSERT_EQ(::unlink(original("a").nativePath().constData()), 0);
    write("a/b", "new");
    EXPECT_EQ(counts(check()), (Counts{{"changed", 1}, {"not backed up", 1}}));
}

TEST_F(OriginalsCheckTests, linksAreComparedByTheirTargets)
{
    const auto link = [this](const char* target, const char* name) {
        ASSERT_EQ(::symlink(target, original(name).nativePath().constData()), 0);
    };
    link("elsewhere", "same");
    link("before", "changed");
    link("elsewhere", "damaged");
    link("gone", "removed");
    backUp();
    ASSERT_EQ(::unlink(original("changed").nativePath().constData()), 0);
    link("after", "changed");
    ASSERT_EQ(::unlink(original("removed").nativePath().constData()), 0);
    ASSERT_EQ(::unlink(copy("damaged").nativePath().constData()), 0);
    ASSERT_EQ(::symlink("astray", copy("damaged").nativePath().constData()), 0);
    const CheckReport report = check();
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"changed", 1}, {"differs", 1}, {"only on drive", 1}}));
    EXPECT_THAT(items(report), ElementsAre(copy("damaged")));
    EXPECT_EQ(report.checksums->count(), 0) << "a link has no data of its own";
}

TEST_F(OriginalsCheckTests, namesOfAnyBytesAreChecked)
{
    write("line\nbreak", "1");
    write("\xff\xfe\x80", "2");
    write("back\\slash \"quoted\"", "3");
    write(QByteArray(255, 'n'), "4");
    backUp();
    EXPECT_EQ(counts(check()), (Counts{{"same", 4}}));
}

TEST_F(OriginalsCheckTests, holesAreTheSameAsZerosAndDamageAmongThemIsFound)
{
    constexpr off_t size = off_t{64} * 1024 * 1024 + 5;
    for (const char* name : {"sound", "damaged"}) {
        write(name, "start");
        ASSERT_EQ(::truncate(original(name).nativePath().constData(), size), 0);
        overwrite(original(name), size - 3, "end");
    }
    backUp();
    ASSERT_LT(statusOf(copy("sound")).st_blocks * 512, size) << "the copy has holes";
    overwrite(copy("damaged"), size / 2, "x");
    const CheckReport report = check();
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"differs", 1}}));
    EXPECT_THAT(items(report), ElementsAre(copy("damaged")));
}

TEST_F(OriginalsCheckTests, specialFilesAndWhatABackupLeavesOutAreNotCounted)
{
    write("a", "1");
    write("build/b", "left out");
    write("Tool.app/Contents/c", "inside");
    ASSERT_EQ(::mkfifo(original("pipe").nativePath().constData(), 0600), 0);
    backUp();
    EXPECT_EQ(counts(check()), (Counts{{"same", 2}}));
}

TEST_F(OriginalsCheckTests, copiesOfASourceWithAHiddenNameAreCheckedToo)
{
    documents = run.mac.makeFolder("Users/mira/.letters");
    for (const char* name : {"a", "deep/b", ".left out", "deep/.left out/c"})
        run.mac.writeFile(QByteArray("Users/mira/.letters/") + name, "1234");
    backUp();
    CheckReport report = check();
    EXPECT_EQ(counts(report), (Counts{{"same", 2}}));
    EXPECT_EQ(report.copies, 2);
    EXPECT_EQ(progress.values().bytes, 8);
    const FileURL damaged = run.mirrored(".letters/deep/b");
    overwrite(damaged, 0, "x");
    report = check();
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"differs", 1}}));
    EXPECT_THAT(items(report), ElementsAre(damaged));
}

TEST_F(OriginalsCheckTests, ofTwoSourcesWithOneNameEitherMayHaveGivenTheCopy)
{
    write("a", "from the first");
    write("both", "from the first");
    const FileURL second = run.mac.makeFolder("Volumes/Other/Documents");
    run.mac.writeFile("Volumes/Other/Documents/both", "of the second!");
    run.mac.writeFile("Volumes/Other/Documents/b", "of the second");
    run.run({documents, second});
    CheckJob both = job();
    both.sources.append({QUuid::createUuid(), second, true});
    EXPECT_EQ(counts(CopyCheck::run(both, progress)), (Counts{{"same", 3}}));
}

TEST_F(OriginalsCheckTests, sourcesThatAreSwitchedOffHaveNoOriginals)
{
    write("a", "1");
    backUp();
    CheckJob off = job();
    off.sources.first().isEnabled = false;
    EXPECT_EQ(counts(CopyCheck::run(off, progress)), (Counts{{"only on drive", 1}}));
}

TEST_F(OriginalsCheckTests, aSourceThatHoldsTheDestinationIsNotCheckedAgainstItself)
{
    write("a", "1");
    run.drive = run.mac.makeFolder("Users/mira/Documents/Drive");
    backUp();
    EXPECT_EQ(counts(check()), (Counts{{"same", 1}}));
}

TEST_F(OriginalsCheckTests, whatABackupLeavesOutIsNotToBeBackedUpEither)
{
    write("plain", "1");
    write("folder/inside", "2");
    write("Tool.app/Contents/inside", "3");
    for (const char* name : {"node_modules/a", "build/a/b", ".hidden/a", ".dot", "image.DMG", "a.tmp"})
        write(QByteArray("left out/") + name, "left out");
    ASSERT_EQ(::symlink("inside", original("folder/link").nativePath().constData()), 0);
    ASSERT_EQ(::symlink("folder", original("to a folder").nativePath().constData()), 0);
    run.drive = run.mac.makeFolder("Users/mira/Documents/Drive");
    backUp();
    EXPECT_EQ(counts(check()), (Counts{{"same", 4}}));
    std::filesystem::remove_all(run.mirrored("Documents").nativePath().toStdString());
    EXPECT_EQ(counts(check()), (Counts{{"not backed up", run.engine.progress().filesCopied}}));
}

TEST_F(OriginalsCheckTests, reportsWhoseCopiesWereDeletedAreNotToBeBackedUp)
{
    write("a", "1");
    run.drive = run.mac.makeFolder("Users/mira/Documents/Drive");
    backUp();
    std::filesystem::remove_all(run.latest().nativePath().toStdString());
    ASSERT_FALSE(testing::EngineRun::everythingBelow(run.reports()).isEmpty());
    write("Drive/Keelbright/Another Mac/b", "of no run of this machine");
    EXPECT_EQ(counts(check()), (Counts{{"not backed up", 2}}));
    backUp();
    EXPECT_EQ(run.engine.progress().filesCopied, 2);
}

TEST_F(OriginalsCheckTests, aMountedPartOfTheCopiesIsNotToBeBackedUp)
{
    write("folder/letter", "1");
    backUp();
    const testing::TemporaryVolume volume(run.mac.makeFolder("Users/mira/Documents/folder/mounted"),
                                          run.mirrored("Documents/folder"));
    if (!volume.isMounted())
        GTEST_SKIP() << "mounting a folder a second time is not permitted here";
    EXPECT_EQ(counts(check()), (Counts{{"same", 1}}));
    backUp();
    EXPECT_EQ(run.engine.progress().filesCopied, 1);
}

TEST_F(OriginalsCheckTests, aSourceThatCantBeOpenedIsNamed)
{
    write("a", "1");
    backUp();
    CheckJob more = job();
    const FileURL missing = run.mac.root().appendingNative("Users/mira/Pictures");
    more.sources.append({QUuid::createUuid(), missing, true});
    const CheckReport report = CopyCheck::run(more, progress);
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"original unreadable", 1}}));
    EXPECT_THAT(items(report), ElementsAre(missing));
    EXPECT_EQ(report.faults(), 0);
}

TEST_F(OriginalsCheckTests, changesNothingNotEvenAccessTimes)
{
    write("folder/a", "some text");
    write("folder/large", content(3'000'000));
    backUp();
    const QList<FileURL> places{
        original("folder"), original("folder/a"), original("folder/large"),     copy("folder"),
        copy("folder/a"),   copy("folder/large"), run.latest("Personal Files"), documents};
    // The one folder that a check makes for itself.
    ASSERT_NE(ChecksumSpool::create(), nullptr);
    const QByteArrayList everything = testing::EngineRun::everythingBelow(run.mac.root());
    for (const FileURL& place : places)
        setTimes(place, 1'000, statusOf(place).st_mtim.tv_sec); // long ago, so that any reading is noted
    const FileURL control = write("control", "1");
    setTimes(control, 1'000, 2'000);
    std::ignore = testing::TestMac::read(control);
    const bool areNoted = statusOf(control).st_atim.tv_sec != 1'000;
    ASSERT_EQ(::unlink(control.nativePath().constData()), 0);
    if (!areNoted)
        GTEST_SKIP() << "the file system notes no access times";
    QList<std::array<timespec, 3>> before;
    for (const FileURL& place : places) {
        const struct stat status = statusOf(place);
        before.append({status.st_atim, status.st_mtim, status.st_ctim});
    }
    EXPECT_EQ(counts(check()), (Counts{{"same", 2}}));
    for (qsizetype i = 0; i < places.size(); ++i) {
        const struct stat after = statusOf(places.at(i));
        const QList<std::pair<timespec, timespec>> times{{before.at(i)[0], after.st_atim},
                                                         {before.at(i)[1], after.st_mtim},
                                                         {before.at(i)[2], after.st_ctim}};
        for (const auto& [earlier, later] : times) {
            EXPECT_EQ(earlier.tv_sec, later.tv_sec) << places.at(i).path().toStdString();
            EXPECT_EQ(earlier.tv_nsec, later.tv_nsec) << places.at(i).path().toStdString();
        }
    }
    EXPECT_EQ(testing::EngineRun::everythingBelow(run.mac.root()), everything);
}

TEST_F(OriginalsCheckTests, aCancelledCheckSaysHowFarItCame)
{
    for (int i = 0; i < 20; ++i)
        write(QByteArray::number(i), "text");
    backUp();
    Cancellation cancellation;
    cancellation.cancel();
    const CheckReport report = CopyCheck::run(job(), progress, cancellation);
    EXPECT_EQ(report.end, CheckReport::End::cancelled);
    EXPECT_EQ(report.checked, 0);
    EXPECT_EQ(counts(report), Counts());
}

TEST_F(OriginalsCheckTests, aDriveThatNothingCanBeWrittenToIsCheckedLikeAnyOther)
{
    const testing::TemporaryVolume volume(run.mac.makeFolder("Volumes/Stick"));
    if (!volume.isMounted())
        GTEST_SKIP() << "a volume of its own needs the right to mount";
    run.drive = volume.location();
    write("folder/a", "1234");
    write("b", "1234");
    backUp();
    overwrite(copy("b"), 0, "x");
    ASSERT_TRUE(volume.makeReadOnly());
    const CheckReport report = check();
    EXPECT_EQ(report.end, CheckReport::End::complete);
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"differs", 1}}));
}

TEST_F(OriginalsCheckTests, saysThatADriveInMemoryCantBeReadPastIt)
{
    write("a", "text");
    const testing::TmpfsMount memory({});
    if (!memory.reasonMissing().empty())
        GTEST_SKIP() << memory.reasonMissing();
    run.drive = memory.root();
    backUp();
    const CheckReport report = check();
    EXPECT_EQ(counts(report), (Counts{{"same", 1}}));
    EXPECT_FALSE(report.isFromDrive);
}

TEST_F(OriginalsCheckTests, keepsTheChecksumsOfSoundCopies)
{
    write("a", "abc");
    write("damaged", "1234");
    backUp();
    overwrite(copy("damaged"), 0, "x");
    const CheckReport report = check();
    ASSERT_NE(report.checksums, nullptr);
    ASSERT_EQ(report.checksums->count(), 1);
    report.checksums->rewind();
    EXPECT_EQ(report.checksums->nextPiece(),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad  Latest/Personal "
              "Files/Documents/a\n");
}

} // namespace
} // namespace keelbright
