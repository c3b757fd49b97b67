#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "tests/faults/FaultTest.h"
#include "tests/support/ImageDrive.h"
#include "tests/support/TemporaryVolume.h"
#include "tests/support/UnprivilegedUser.h"

#include <QProcess>
#include <QScopeGuard>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using testing::ImageDrive;
using ::testing::IsEmpty;
using testing::TemporaryVolume;
using ::testing::UnorderedElementsAre;
using testing::UnprivilegedUser;

class SourceFaultTest : public testing::FaultTest
{
protected:
    static void setMode(const FileURL& url, mode_t mode)
    {
        EXPECT_EQ(::chmod(url.nativePath().constData(), mode), 0);
    }

    void makeLink(const QByteArray& name, const char* target) const
    {
        EXPECT_EQ(::symlink(target, documents.appendingNative(name).nativePath().constData()), 0);
    }

    [[nodiscard]] QByteArray linkTarget(const QByteArray& name) const
    {
        char target[64] = {};
        const ssize_t length = ::readlink(mirrored("Documents/" + name).nativePath().constData(), target, 64);
        return length < 0 ? QByteArray() : QByteArray(target, length);
    }

    [[nodiscard]] QByteArray contentOf(const QByteArray& name) const
    {
        return FileManager::defaultManager().contents(mirrored("Documents/" + name)).value_or(QByteArray());
    }

    /// Whether a file that is overwritten from its beginning to its end, each time with the next letter,
    /// had this content at one moment: new letters up to some position, old ones after it.
    [[nodiscard]] static bool isOfOneMoment(const QByteArray& content)
    {
        const auto front = content.front();
        const qsizetype end = content.size();
        qsizetype place = 0;
        while (place < end && content[place] == front)
            ++place;
        const char before = front == 'a' ? 'z' : static_cast<char>(front - 1);
        return place == end || content.sliced(place) == QByteArray(end - place, before);
    }

    const QString changedLine = skipLine("live", "copied: it changed while it was being copied.");
};

TEST_F(SourceFaultTest, reportsEachFolderAndFileThatMayNotBeRead)
{
    makeFile("readable");
    makeFile("secret");
    const FileURL locked = mac.makeFolder("Users/mira/Documents/locked");
    makeFile("locked/one");
    makeFile("locked/two");
    const FileURL listedOnly = mac.makeFolder("Users/mira/Documents/listed only");
    makeFile("listed only/three");
    setMode(mac.root(), 0755);
    setMode(drive, 0777);
    setMode(documents.appendingNative("secret"), 0);
    setMode(locked, 0);
    setMode(listedOnly, 0744);
    {
        const UnprivilegedUser user;
        run({documents});
    }
    QStringList errors = progress().errors;
    errors.sort();
    EXPECT_EQ(errors, QStringList({skipLine("locked", "opened: you don't have permission."),
                                   skipLine("secret", "read: you don't have permission."),
                                   skipLine("three", "read: you don't have permission.")}));
    EXPECT_EQ(progress().filesSkipped, 3) << "a folder counts once";
    EXPECT_EQ(progress().filesCopied, 1);
    EXPECT_EQ(mirroredVersion("readable"), 1);
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_F(SourceFaultTest, reportsAFileThatVanishesBeforeItsTurn)
{
    makeFiles(300);
    const QByteArrayList order = walkingOrder();
    // The next two hundred files may already be open.
    whenCopied(1, [&] {
        for (const QByteArray& name : order.sliced(297, 2))
            ::unlink(documents.appendingNative(name).nativePath().constData());
    });
    run({documents});
    EXPECT_EQ(progress().errors, QStringList({skipLine(order[297], "read: it does not exist."),
                                              skipLine(order[298], "read: it does not exist.")}));
    EXPECT_EQ(progress().filesCopied, 298);
    EXPECT_EQ(progress().filesSkipped, 2);
    EXPECT_EQ(mirroredVersion(order[299]), 1);
}

TEST_F(SourceFaultTest, copiesAFileThatGrowsWholeOrNotAtAll)
{
    const QByteArray line = "one whole line\n";
    const FileURL live = mac.writeFile("Users/mira/Documents/live", line.repeated(200'000));
    QProcess writer;
    const QString script = QStringLiteral("while :; do echo 'one whole line' >> \"$0\"; done");
    writer.start(QStringLiteral("sh"), {QStringLiteral("-c"), script, live.path()});
    const auto stopWriter = qScopeGuard([&] {
        writer.kill();
        writer.waitForFinished();
    });
    ASSERT_TRUE(writer.waitForStarted());
    qint64 lastSize = 0;
    for (int round = 0; round < 10; ++round) {
        run({documents});
        const bool isCopied = progress().filesCopied == 1;
        EXPECT_EQ(progress().errors, isCopied ? QStringList() : QStringList{changedLine});
        EXPECT_EQ(progress().filesSkipped, isCopied ? 0 : 1);
        if (!exists(mirrored("Documents/live")))
            continue;
        const QByteArray copy = contentOf("live");
        EXPECT_TRUE(copy == line.repeated(copy.size() / line.size())) << "a line is cut in two";
        EXPECT_GE(copy.size(), lastSize);
        EXPECT_TRUE(isCopied || copy.size() == lastSize) << "the old copy stays";
        lastSize = copy.size();
    }
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

TEST_F(SourceFaultTest, neverMixesTwoVersionsOfAFileThatIsRewritten)
{
    constexpr qsizetype size = 2'000'000;
    constexpr qsizetype piece = 50'000;
    const FileURL live = mac.writeFile("Users/mira/Documents/live", QByteArray(size, 'a'));
    const int file = ::open(live.nativePath().constData(), O_WRONLY | O_CLOEXEC);
    QByteArray content(piece, 'a');
    const pid_t writer = ::fork();
    if (writer == 0) {
        for (int version = 1;; ++version) {
            content.fill(static_cast<char>('a' + version % 26));
            for (qsizetype place = 0; place < size; place += piece) {
                if (::pwrite(file, content.constData(), piece, place) < 0)
                    ::_exit(1);
            }
            ::usleep(static_cast<useconds_t>(version % 10) * 1'000);
        }
    }
    const auto stopWriter = qScopeGuard([&] {
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
        ::close(file);
    });
    ASSERT_GT(writer, 0);
    int copies = 0;
    for (int round = 0; round < 60; ++round) {
        run({documents});
        copies += static_cast<int>(progress().filesCopied);
        EXPECT_EQ(progress().errors, progress().filesCopied == 1 ? QStringList() : QStringList{changedLine});
        if (copies == 0)
            continue;
        const QByteArray copy = contentOf("live");
        EXPECT_EQ(copy.size(), size);
        EXPECT_TRUE(isOfOneMoment(copy)) << "two moments in one copy";
    }
    EXPECT_GT(copies, 0) << "no copy was ever made: nothing was tested";
}

TEST_F(SourceFaultTest, neverMixesTwoVersionsOfAFileThatIsChangedThroughAMapping)
{
    const ImageDrive image(ImageDrive::Kind::ext4, 67'108'864);
    if (!image.reasonMissing().empty())
        GTEST_SKIP() << image.reasonMissing();
    constexpr size_t size = 2'000'000;
    const FileURL source = image.root().appendingNative("Documents");
    ASSERT_EQ(::mkdir(source.nativePath().constData(), 0755), 0);
    const FileDescriptor file(
        ::open(source.appendingNative("live").nativePath().constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644));
    ASSERT_EQ(writeAll(file.get(), QByteArray(size, 'a').constData(), size), 0);
    auto* const content =
        static_cast<char*>(::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0));
    ASSERT_NE(content, MAP_FAILED);
    std::jthread writer([content](const std::stop_token& stop) {
        for (int version = 1; !stop.stop_requested(); ++version) {
            for (size_t place = 0; place < size; place += 50'000) {
                std::memset(content + place, 'a' + version % 26, 50'000);
                std::this_thread::sleep_for(std::chrono::microseconds(50));
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(version % 10 * 10));
        }
    });
    int copies = 0;
    for (int round = 0; round < 40; ++round) {
        run({source});
        copies += static_cast<int>(progress().filesCopied);
        EXPECT_EQ(progress().errors, progress().filesCopied == 1 ? QStringList() : QStringList{changedLine});
        if (copies > 0) {
            EXPECT_TRUE(isOfOneMoment(contentOf("live"))) << "two moments in one copy";
        }
    }
    writer = {};
    ::munmap(content, size);
    EXPECT_GT(copies, 0) << "no copy was ever made: nothing was tested";
}

TEST_F(SourceFaultTest, copiesBrokenAndCircularLinks)
{
    makeFile("file");
    mac.makeFolder("Users/mira/Documents/folder");
    makeFile("folder/inside");
    makeLink("dangling", "no such place");
    makeLink("loop", "loop");
    makeLink("circle one", "circle two");
    makeLink("circle two", "circle one");
    makeLink("to folder", "folder");
    makeLink("folder/up", "..");
    for (int round = 0; round < 2; ++round) {
        run({documents});
        EXPECT_THAT(progress().errors, IsEmpty());
        EXPECT_EQ(progress().filesCopied, 6);
        EXPECT_EQ(progress().filesSkipped, 0);
        EXPECT_THAT(
            everythingBelow(mirrored("Documents")),
            ElementsAre("circle one", "circle two", "dangling", "file", "folder", "folder/inside", "loop"));
        EXPECT_EQ(linkTarget("dangling"), "no such place");
        EXPECT_EQ(linkTarget("loop"), "loop");
        EXPECT_EQ(linkTarget("circle one"), "circle two");
    }
}

TEST_F(SourceFaultTest, copiesBothOfTwoNamesThatDifferInCaseOnlyToACaseSensitiveDrive)
{
    makeFile("a.txt");
    makeFile("A.TXT");
    mac.makeFolder("Users/mira/Documents/Notes");
    mac.makeFolder("Users/mira/Documents/notes");
    makeFile("Notes/day");
    makeFile("notes/day");
    for (int round = 0; round < 2; ++round) {
        run({documents});
        EXPECT_THAT(progress().errors, IsEmpty());
        EXPECT_THAT(everythingBelow(mirrored("Documents")),
                    ElementsAre("A.TXT", "Notes", "Notes/day", "a.txt", "notes", "notes/day"));
        // A folder that exists as if the drive were case-insensitive.
        mac.makeFolder("Volumes/Drive/Keelbright/miras Mac/Latest/pERSONAL fILES");
    }
}

TEST_F(SourceFaultTest, walksIntoAnotherDeviceBelowASource)
{
    makeFile("here");
    const TemporaryVolume volume(mac.makeFolder("Users/mira/Documents/other device"));
    if (!volume.isMounted())
        GTEST_SKIP() << "no file system can be mounted here";
    mac.makeFolder("Users/mira/Documents/other device/deep/er");
    makeFile("other device/there");
    makeFile("other device/deep/er/far");
    makeFile("zebra");
    run({documents});
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(progress().filesCopied, 4);
    EXPECT_EQ(progress().totalFilesEstimate, 4);
    for (const QByteArray name : {"here", "other device/there", "other device/deep/er/far", "zebra"})
        EXPECT_EQ(mirroredVersion(name), 1);
}

} // namespace
} // namespace keelbright
