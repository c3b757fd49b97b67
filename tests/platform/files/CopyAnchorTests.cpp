#include "KeelbrightCore/platform/files/CopyAnchor.h"

#include "tests/support/TestMac.h"

#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace keelbright {
namespace {

using testing::TestMac;

class CopyAnchorTest : public ::testing::Test
{
protected:
    [[nodiscard]] std::shared_ptr<CopyAnchor> anchor() const
    {
        FileDescriptor opened(::open(folder.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        return *CopyAnchor::of(folder, std::move(opened));
    }

    void moveAway() const
    {
        std::filesystem::rename(folder.nativePath().toStdString(),
                                folder.nativePath().toStdString() + " away");
    }

    TestMac mac;
    FileURL folder = mac.makeFolder("drive/Latest");
};

const QString goneText =
    QStringLiteral("“Latest” could not be copied: the destination is no longer in its place.");

TEST_F(CopyAnchorTest, isInPlaceUntilItsPathLeadsElsewhere)
{
    const auto own = anchor();
    EXPECT_TRUE(own->isInPlace());
    EXPECT_TRUE(own->checkPlaceNow().has_value());
    moveAway();
    EXPECT_FALSE(own->isInPlace());
    mac.makeFolder("drive/Latest");
    EXPECT_FALSE(own->isInPlace()) << "another folder of that name is not it";
    EXPECT_EQ(own->checkPlaceNow().error().localizedDescription(), goneText);
}

TEST_F(CopyAnchorTest, asksAgainOnceItWasFoundGone)
{
    const auto own = anchor();
    moveAway();
    EXPECT_EQ(own->checkPlace().error().localizedDescription(), goneText);
    std::filesystem::rename(folder.nativePath().toStdString() + " away", folder.nativePath().toStdString());
    EXPECT_TRUE(own->checkPlace().has_value());
}

TEST_F(CopyAnchorTest, isAskedBySeveralThreadsAtOnce)
{
    const auto own = anchor();
    std::atomic<bool> isSeenAway = false;
    std::vector<std::jthread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            while (own->checkPlace()) {
            }
            isSeenAway = true;
        });
    }
    moveAway();
    threads.clear();
    EXPECT_TRUE(isSeenAway);
}

TEST_F(CopyAnchorTest, recreatesAFolderBelowItself)
{
    const auto own = anchor();
    const auto made = own->recreateFolder("one/two");
    ASSERT_TRUE(made.has_value());
    EXPECT_TRUE(std::filesystem::is_directory(folder.appendingNative("one/two").nativePath().toStdString()));
    EXPECT_TRUE(own->recreateFolder("one/two").has_value()) << "one that is there is fine";
}

TEST_F(CopyAnchorTest, recreatesNothingOnceItIsGone)
{
    const auto own = anchor();
    ASSERT_TRUE(own->checkPlace().has_value());
    moveAway();
    EXPECT_EQ(own->recreateFolder("one").error().localizedDescription(), goneText);
    EXPECT_FALSE(std::filesystem::exists(folder.nativePath().toStdString() + " away/one"));
}

TEST_F(CopyAnchorTest, flushesItsFileSystem)
{
    EXPECT_TRUE(anchor()->flush().has_value());
}

TEST_F(CopyAnchorTest, needsAnOpenFolder)
{
    EXPECT_EQ(CopyAnchor::of(folder, {}).error().localizedDescription(),
              QStringLiteral("“Latest” could not be opened: Bad file descriptor."));
}

} // namespace
} // namespace keelbright
