#include "KeelbrightCore/platform/files/TrashRecordFile.h"

#include "tests/platform/files/TrashTestCase.h"
#include "tests/support/FatImage.h"

#include <fcntl.h>
#include <thread>
#include <vector>

namespace keelbright {

using namespace testing;

namespace {

int openFolder(const FileURL& folder)
{
    return ::open(folder.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

/// Lets many want one name at the same moment; how many got it.
int winners(int folder, const QByteArray& name)
{
    constexpr int competitors = 4;
    std::atomic<int> waiting = competitors;
    std::atomic<int> winners = 0;
    std::vector<std::jthread> threads;
    threads.reserve(competitors);
    for (int i = 0; i < competitors; ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0)
                std::this_thread::yield();
            const auto written = writeTrashRecord(folder, name, QByteArray::number(i));
            if (written)
                ++winners;
            else
                EXPECT_EQ(written.error(), EEXIST);
        });
    }
    threads.clear();
    return winners;
}

class TrashRecordFileTests : public TrashTestCase
{};

} // namespace

TEST_F(TrashRecordFileTests, theRecordIsWrittenForItsOwnerAlone)
{
    const FileURL folder = m_mac.makeFolder("info");
    const int descriptor = openFolder(folder);
    EXPECT_TRUE(writeTrashRecord(descriptor, "a.trashinfo", "content"));
    ::close(descriptor);
    EXPECT_EQ(TestMac::read(folder.appendingNative("a.trashinfo")), "content");
    EXPECT_EQ(permissions(folder.appendingNative("a.trashinfo")), 0600U);
}

TEST_F(TrashRecordFileTests, aTakenNameIsNotReplaced)
{
    const FileURL older = m_mac.writeFile("info/a.trashinfo", "older");
    const int descriptor = openFolder(older.deletingLastPathComponent());
    EXPECT_EQ(writeTrashRecord(descriptor, "a.trashinfo", "newer"), std::unexpected(EEXIST));
    ::close(descriptor);
    EXPECT_EQ(TestMac::read(older), "older");
}

TEST_F(TrashRecordFileTests, oneOfManyGetsTheName)
{
    const int descriptor = openFolder(m_mac.makeFolder("info"));
    for (int round = 0; round < 50; ++round)
        EXPECT_EQ(winners(descriptor, QByteArray::number(round)), 1);
    ::close(descriptor);
}

// A drive without unnamed files, which can't refuse a taken name while it renames either.
TEST_F(TrashRecordFileTests, oneOfManyGetsTheNameOnASimpleDrive)
{
    const FatImage drive;
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    const int descriptor = openFolder(drive.root());
    for (int round = 0; round < 50; ++round)
        EXPECT_EQ(winners(descriptor, QByteArray::number(round)), 1);
    ::close(descriptor);
}

TEST_F(TrashRecordFileTests, nothingIsLostWhenManyThrowOneNameAwayOnASimpleDrive)
{
    const FatImage drive;
    if (!drive.reasonMissing().empty())
        GTEST_SKIP() << drive.reasonMissing();
    constexpr int competitors = 4;
    constexpr int perCompetitor = 6;
    SandboxFileManager& files = m_mac.fileManager();
    const auto place = [&](int number) {
        return drive.root().appendingNative(QByteArray::number(number)).appendingNative("same");
    };
    for (int number = 0; number < competitors * perCompetitor; ++number) {
        ASSERT_TRUE(files.createDirectory(place(number).deletingLastPathComponent()));
        ASSERT_TRUE(files.writeAtomically(place(number), QByteArray::number(number)));
    }
    std::vector<std::jthread> threads;
    threads.reserve(competitors);
    for (int first = 0; first < competitors; ++first) {
        threads.emplace_back([&, first] {
            for (int number = first; number < competitors * perCompetitor; number += competitors)
                trashed(place(number));
        });
    }
    threads.clear();
    const FileURL trash = drive.root().appendingNative(".Trash-" + user);
    const auto thrownAway = files.contentsOfDirectory(trash.appendingNative("files"), {});
    ASSERT_TRUE(thrownAway);
    std::set<QByteArray> contents;
    for (const DirectoryEntry& entry : *thrownAway) {
        const QByteArray content = TestMac::read(entry.url);
        contents.insert(content);
        EXPECT_TRUE(recordWithoutDate(entry.url).contains("\nPath=" + content + "/same\n"));
    }
    EXPECT_EQ(contents.size(), size_t{competitors * perCompetitor});
}

} // namespace keelbright
