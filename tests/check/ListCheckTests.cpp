// Checks against a list of checksums, which the tool of the system reads as well.

#include "KeelbrightCore/platform/files/FileManager.h"
#include "tests/check/CheckTestCase.h"

#include <QProcess>

namespace keelbright {
namespace {

using testing::content;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ListCheckTests : public testing::CheckTestCase
{
protected:
    [[nodiscard]] FileURL deviceFolder() const { return run.latest().deletingLastPathComponent(); }

    /// Backs up, checks, and saves the list where it is proposed.
    FileURL backUpAndSaveList()
    {
        backUp();
        const CheckReport report = check();
        const FileURL list = CopyCheck::proposedChecksumList(report.deviceFolder);
        report.checksums->rewind();
        const auto nextPiece = [&]() -> std::expected<QByteArray, FileError> {
            return report.checksums->nextPiece();
        };
        EXPECT_TRUE(FileManager::defaultManager().writePiecesAtomically(list, nextPiece).has_value());
        return list;
    }

    [[nodiscard]] CheckReport checkAgainst(const FileURL& list)
    {
        return CopyCheck::run({.sources = {}, .destination = run.drive, .checksumList = list}, progress);
    }

    /// Makes a list look as if it was written after everything else.
    void writtenLast(const FileURL& list) { setTimes(list, 4'000'000'000, 4'000'000'000); }

    struct Outcome
    {
        int exitCode;
        QByteArray output;
    };

    /// What the tool of the system says of the list, in the folder that the list is relative to.
    [[nodiscard]] Outcome askTool(const FileURL& list) const
    {
        QProcess tool;
        tool.setWorkingDirectory(deviceFolder().path());
        tool.setProcessChannelMode(QProcess::MergedChannels);
        tool.start(
            QStringLiteral("/usr/bin/sha256sum"),
            {QStringLiteral("--check"), QStringLiteral("--strict"), QStringLiteral("--quiet"), list.path()});
        EXPECT_TRUE(tool.waitForFinished(60'000));
        return {tool.exitCode(), tool.readAll()};
    }
};

TEST_F(ListCheckTests, theListIsProposedBesideTheFolderOfTheDevice)
{
    write("a", "1");
    EXPECT_EQ(backUpAndSaveList(), run.drive.appendingNative("Keelbright/miras Mac.sha256"));
    EXPECT_EQ(CopyCheck::deviceFolderBeside(run.drive.appendingNative("Keelbright/miras Mac.sha256")),
              deviceFolder());
    EXPECT_EQ(CopyCheck::deviceFolderBeside(run.drive.appendingNative("Keelbright/other.sha256")),
              std::nullopt);
    EXPECT_EQ(CopyCheck::deviceFolderBeside(run.drive.appendingNative("Keelbright/miras Mac")), std::nullopt);
}

TEST_F(ListCheckTests, theToolOfTheSystemReadsTheListForNamesOfAnyBytes)
{
    write("plain.txt", "1");
    write("folder/ two blanks ", "2");
    write("back\\slash", "3");
    write("line\nbreak", "4");
    write("carriage\rreturn", "5");
    write("\xff\xfe\x80", "6");
    write("-dash", "7");
    write("*star", "8");
    write("empty", "");
    write("large", content(3'000'000));
    const FileURL list = backUpAndSaveList();
    EXPECT_EQ(testing::TestMac::read(list).count('\n'), 10);
    const Outcome sound = askTool(list);
    EXPECT_EQ(sound.exitCode, 0) << sound.output.toStdString();
    EXPECT_EQ(sound.output, "");
    overwrite(copy("large"), 1'500'000, "x");
    const Outcome damaged = askTool(list);
    EXPECT_EQ(damaged.exitCode, 1);
    EXPECT_TRUE(damaged.output.startsWith("Latest/Personal Files/Documents/large: FAILED\n"))
        << damaged.output.toStdString();
}

TEST_F(ListCheckTests, aLaterCheckTakesTheListInPlaceOfTheOriginals)
{
    write("a", "1");
    write("line\nbreak", "2");
    write("damaged", content(200'000));
    const FileURL list = backUpAndSaveList();
    ASSERT_EQ(::rename(documents.nativePath().constData(),
                       run.mac.root().appendingNative("gone").nativePath().constData()),
              0);
    CheckReport report = checkAgainst(list);
    EXPECT_EQ(report.end, CheckReport::End::complete);
    EXPECT_TRUE(report.isAgainstList);
    EXPECT_EQ(counts(report), (Counts{{"same", 3}}));
    EXPECT_EQ(report.copies, 3);
    EXPECT_EQ(report.checked, 3);
    EXPECT_EQ(report.deviceFolder, deviceFolder());
    overwrite(copy("damaged"), 100'000, "x");
    writtenLast(list);
    report = checkAgainst(list);
    EXPECT_EQ(counts(report), (Counts{{"same", 2}, {"differs", 1}}));
    EXPECT_THAT(items(report), ElementsAre(copy("damaged")));
    EXPECT_EQ(report.findings.first().reason, CheckFinding::Reason::differsFromList);
}

TEST_F(ListCheckTests, needsNoDestinationWhereTheListLiesBesideItsCopies)
{
    write("a", "1");
    const FileURL list = backUpAndSaveList();
    const CheckReport report =
        CopyCheck::run({.sources = {}, .destination = std::nullopt, .checksumList = list}, progress);
    EXPECT_EQ(counts(report), (Counts{{"same", 1}}));
    const FileURL elsewhere = run.mac.root().appendingNative("elsewhere.sha256");
    ASSERT_EQ(::rename(list.nativePath().constData(), elsewhere.nativePath().constData()), 0);
    EXPECT_EQ(counts(checkAgainst(elsewhere)), (Counts{{"same", 1}}))
        << "of this machine, on the destination";
    const CheckReport homeless =
        CopyCheck::run({.sources = {}, .destination = std::nullopt, .checksumList = elsewhere}, progress);
    EXPECT_EQ(homeless.end, CheckReport::End::failed);
    EXPECT_EQ(homeless.error->localizedDescription(),
              QStringLiteral("“elsewhere” could not be opened: it does not exist."));
}

TEST_F(ListCheckTests, aListThatLiesElsewhereIsAboutTheFolderOfItsName)
{
    write("a", "1");
    const FileURL list = backUpAndSaveList();
    const auto move = [](const FileURL& from, const FileURL& to) {
        ASSERT_EQ(::rename(from.nativePath().constData(), to.nativePath().constData()), 0);
    };
    const FileURL another = run.drive.appendingNative("Keelbright/Another Mac");
    move(deviceFolder(), another);
    const FileURL elsewhere = run.mac.home().appendingNative("Another Mac.sha256");
    move(list, elsewhere);
    write("b", "of this machine");
    backUp();
    const CheckReport report = checkAgainst(elsewhere);
    EXPECT_EQ(counts(report), (Counts{{"same", 1}}));
    EXPECT_EQ(report.deviceFolder, another);
}

TEST_F(ListCheckTests, aListBehindALinkLiesBesideItsCopies)
{
    write("a", "1");
    const FileURL list = backUpAndSaveList();
    const FileURL link = run.mac.home().appendingNative("link.sha256");
    ASSERT_EQ(::symlink(list.nativePath().constData(), link.nativePath().constData()), 0);
    const CheckReport report =
        CopyCheck::run({.sources = {}, .destination = std::nullopt, .checksumList = link}, progress);
    EXPECT_EQ(counts(report), (Counts{{"same", 1}}));
    EXPECT_EQ(report.deviceFolder, deviceFolder());
}

TEST_F(ListCheckTests, knowsTheCopiesOfASourceWithAHiddenName)
{
    documents = run.mac.makeFolder("Users/mira/.letters");
    run.mac.writeFile("Users/mira/.letters/a", "1");
    const CheckReport report = checkAgainst(backUpAndSaveList());
    EXPECT_EQ(counts(report), (Counts{{"same", 1}}));
    EXPECT_EQ(report.copies, 1);
}

TEST_F(ListCheckTests, aCopyThatIsMissingIsAFault)
{
    write("a", "1");
    write("b", "2");
    const FileURL list = backUpAndSaveList();
    ASSERT_EQ(::unlink(copy("a").nativePath().constData()), 0);
    const CheckReport report = checkAgainst(list);
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"unreadable", 1}}));
    EXPECT_EQ(report.findings.first().error->localizedDescription(),
              QStringLiteral("“a” could not be read: it does not exist."));
}

TEST_F(ListCheckTests, whatALaterBackupHasWrittenIsNoFault)
{
    write("a", "1");
    write("same", "2");
    const FileURL list = backUpAndSaveList();
    setTimes(list, 1'500'000'000, 1'500'000'000);
    write("a", "2");
    write("new", "3");
    backUp();
    const CheckReport report = checkAgainst(list);
    EXPECT_EQ(counts(report), (Counts{{"same", 1}, {"changed", 1}, {"only on drive", 1}}));
    EXPECT_THAT(report.findings, IsEmpty());
}

TEST_F(ListCheckTests, linesThatAreNoneOfAListAreCounted)
{
    write("a", "1");
    const FileURL list = backUpAndSaveList();
    const QByteArray lines = testing::TestMac::read(list);
    ASSERT_TRUE(
        FileManager::defaultManager().writeAtomically(list, "# a remark\n" + lines + "../x\n").has_value());
    const CheckReport report = checkAgainst(list);
    EXPECT_EQ(counts(report), (Counts{{"same", 1}}));
    EXPECT_EQ(report.unknownLines, 2);
}

TEST_F(ListCheckTests, aListThatCantBeReadCantBeUsed)
{
    const CheckReport report = checkAgainst(run.drive.appendingNative("missing.sha256"));
    EXPECT_EQ(report.end, CheckReport::End::failed);
    EXPECT_EQ(report.error->localizedDescription(),
              QStringLiteral("“missing.sha256” could not be opened: it does not exist."));
}

} // namespace
} // namespace keelbright
