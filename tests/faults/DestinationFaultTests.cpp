#include "tests/faults/FaultTest.h"
#include "tests/support/TemporaryVolume.h"
#include "tests/support/TmpfsMount.h"

#include <QProcess>
#include <chrono>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::IsEmpty;
using ::testing::Le;
using testing::TemporaryVolume;
using testing::TestMac;
using testing::TmpfsMount;

class DestinationFaultTest : public testing::FaultTest
{
protected:
    /// Waits longer than a run works without checking that the drive is in its place.
    static void letTheRunCheck() { std::this_thread::sleep_for(std::chrono::milliseconds(120)); }

    [[nodiscard]] static QString goneLine(const QByteArray& name)
    {
        return QStringLiteral("Skip %1: “Latest” could not be copied: the destination is no longer in its "
                              "place.")
            .arg(QString::fromUtf8(name));
    }

    const QString manifestLine =
        QStringLiteral("Manifest write failed: “recovery-manifest.json” could not be written: "
                       "the destination is no longer in its place.");
    const QString reportLine = QStringLiteral("Report write failed: “Reports” could not be written: "
                                              "the destination is no longer in its place.");

    /// Expects the report of a run whose drive disappeared after `copied` files.
    void expectGoneAfter(qsizetype copied) const
    {
        QStringList lines;
        for (const QByteArray& name : walkingOrder().sliced(copied))
            lines.append(goneLine(name));
        ASSERT_TRUE(engine.lastReport().has_value());
        EXPECT_EQ(engine.lastReport()->errors, lines + QStringList{manifestLine});
        EXPECT_EQ(progress().errors, lines + QStringList({manifestLine, reportLine}));
        EXPECT_EQ(engine.lastReport()->manifestPath, QStringLiteral("Failed"));
        EXPECT_EQ(progress().filesCopied, copied);
        EXPECT_EQ(progress().filesSkipped, lines.size());
    }
};

TEST_F(DestinationFaultTest, cannotStartOnAFile)
{
    makeFiles(1);
    drive = mac.writeFile("Volumes/file", "not a folder");
    run({documents});
    EXPECT_EQ(engine.lastError(), QStringLiteral("Could not create backup folders: “file” could not be "
                                                 "opened: a file stands in the place of a folder."));
    EXPECT_EQ(engine.lastReport(), std::nullopt);
    EXPECT_EQ(TestMac::read(drive), "not a folder");
}

TEST_F(DestinationFaultTest, cannotStartOnAReadOnlyDrive)
{
    const TmpfsMount mount({});
    if (!mount.reasonMissing().empty())
        GTEST_SKIP() << mount.reasonMissing();
    drive = mount.root();
    mount.makeReadOnly();
    makeFiles(1);
    run({documents});
    EXPECT_EQ(engine.lastError(), QStringLiteral("Could not create backup folders: “Keelbright” could not "
                                                 "be created: the drive is read-only."));
    EXPECT_EQ(engine.lastReport(), std::nullopt);
}

TEST_F(DestinationFaultTest, keepsTheCopiesOfADriveThatBecameReadOnly)
{
    const TmpfsMount mount({});
    if (!mount.reasonMissing().empty())
        GTEST_SKIP() << mount.reasonMissing();
    drive = mount.root();
    makeFiles(3, 5'000, 1);
    run({documents});
    const QByteArrayList before = everythingBelow(drive);
    makeFiles(3, 5'000, 2);
    mount.makeReadOnly();
    run({documents});

    QStringList lines;
    for (const QByteArray& name : walkingOrder())
        lines.append(skipLine(name, "copied: the drive is read-only."));
    lines.append(QStringLiteral("Manifest write failed: “recovery-manifest.json” could not be written: "
                                "the drive is read-only."));
    EXPECT_EQ(engine.lastReport()->errors, lines);
    EXPECT_EQ(engine.lastReport()->manifestPath, QStringLiteral("Failed"));
    ASSERT_EQ(progress().errors.size(), 5);
    EXPECT_TRUE(progress().errors.last().startsWith(QStringLiteral("Report write failed: “backup-report-")));
    EXPECT_TRUE(progress().errors.last().endsWith(QStringLiteral("written: the drive is read-only.")));
    EXPECT_EQ(progress().filesSkipped, 3);
    EXPECT_EQ(everythingBelow(drive), before);
    EXPECT_EQ(mirroredVersion(fileName(0)), 1);
}

TEST_F(DestinationFaultTest, endsWhenItsFolderIsRemovedDuringTheRun)
{
    makeFiles(50);
    whenCopied(5, [this] {
        const FileURL folder = drive.appending(QStringLiteral("Keelbright"));
        EXPECT_EQ(QProcess::execute(QStringLiteral("rm"), {QStringLiteral("-rf"), folder.path()}), 0);
    });
    run({documents});
    expectGoneAfter(5);
    EXPECT_THAT(everythingBelow(drive), IsEmpty()) << "nothing is created again";
}

TEST_F(DestinationFaultTest, endsWhenItsFolderIsRemovedWhileItWrites)
{
    constexpr int count = 2'000;
    makeFiles(count);
    QProcess remover;
    whenCopied(200, [&] {
        // Repeated until the folder is gone, because the run still writes into it.
        const QString script = QStringLiteral("until rm -rf \"$0\" 2>/dev/null; do :; done");
        remover.start(QStringLiteral("sh"),
                      {QStringLiteral("-c"), script, drive.appending(QStringLiteral("Keelbright")).path()});
    });
    run({documents});
    ASSERT_TRUE(remover.state() == QProcess::NotRunning || remover.waitForFinished());
    EXPECT_EQ(progress().filesCopied + progress().filesSkipped, count);
    EXPECT_THAT(progress().filesCopied, AllOf(Ge(200), Le(count)));
    EXPECT_TRUE(engine.lastReport().has_value());
    EXPECT_THAT(everythingBelow(drive), IsEmpty());
}

TEST_F(DestinationFaultTest, writesNothingToADriveMountedOverTheDestination)
{
    makeFiles(50);
    std::optional<TemporaryVolume> over;
    whenCopied(5, [&] {
        over.emplace(drive);
        // The other drive also holds a backup of the same machine.
        mac.makeFolder("Volumes/Drive/Keelbright/miras Mac/Latest/Personal Files/Documents");
        mac.makeFolder("Volumes/Drive/Keelbright/miras Mac/Reports");
        letTheRunCheck();
    });
    run({documents});
    if (!over->isMounted())
        GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_THAT(everythingBelow(drive),
                ElementsAre("Keelbright", "Keelbright/miras Mac", "Keelbright/miras Mac/Latest",
                            "Keelbright/miras Mac/Latest/Personal Files",
                            "Keelbright/miras Mac/Latest/Personal Files/Documents",
                            "Keelbright/miras Mac/Reports"));
    over.reset();
    // A file that was complete by then may still have been named.
    const qsizetype copied = everythingBelow(mirrored("Documents")).size();
    EXPECT_THAT(copied, AnyOf(5, 6));
    expectGoneAfter(copied);
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
    EXPECT_FALSE(exists(latest("recovery-manifest.json")));
    EXPECT_THAT(everythingBelow(reports()), IsEmpty());
}

TEST_F(DestinationFaultTest, writesNothingBelowTheMountPointOfAnUnmountedDrive)
{
    makeFiles(50);
    const TemporaryVolume volume(drive);
    if (!volume.isMounted())
        GTEST_SKIP() << "no file system can be mounted here";
    const int root = ::open(drive.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_GE(root, 0);
    whenCopied(5, [this] {
        EXPECT_EQ(::umount2(drive.nativePath().constData(), MNT_DETACH), 0);
        letTheRunCheck();
    });
    run({documents});
    EXPECT_THAT(everythingBelow(drive), IsEmpty());
    const FileURL gone = FileURL::fromNativePath("/proc/self/fd/" + QByteArray::number(root));
    const FileURL copies = gone.appendingNative("Keelbright/miras Mac/Latest/Personal Files/Documents");
    const qsizetype copied = everythingBelow(copies).size();
    EXPECT_THAT(copied, AnyOf(5, 6));
    expectGoneAfter(copied);
    ::close(root);
}

} // namespace
} // namespace keelbright
