#include "tests/faults/FaultTest.h"
#include "tests/support/FailingDrive.h"
#include "tests/support/ImageDrive.h"

namespace keelbright {
namespace {

using testing::FailingDrive;
using testing::ImageDrive;

/// A drive that accepts every write and loses it later, when it is written back to the medium.
class WriteBackTest : public testing::FaultTest
{
protected:
    void SetUp() override
    {
        for (const std::string& reason : {m_medium.reasonMissing(), m_image.reasonMissing()}) {
            if (!reason.empty())
                GTEST_SKIP() << reason;
        }
        drive = m_image.root();
    }

    static QString lineOfTheFlush()
    {
        return QStringLiteral("Skip drive: “Latest” could not be written through to the drive: the drive "
                              "reported an error.");
    }

    void loseWrites() const { m_medium.failNow(); }

private:
    static constexpr qint64 endless = 1'000'000'000'000;
    FailingDrive m_medium{QStringLiteral("write"), endless, QStringLiteral("EIO")};
    ImageDrive m_image{ImageDrive::Kind::ext4, 67'108'864, m_medium.root()};
};

TEST_F(WriteBackTest, isReportedAtTheEndAndNeverASuccess)
{
    makeFiles(40, 50'000);
    whenCopied(10, [this] { loseWrites(); });
    run({documents});
    ASSERT_GE(progress().errors.size(), 2);
    EXPECT_EQ(progress().errors.first(2),
              (QStringList{QStringLiteral("Manifest write failed: “recovery-manifest.json” could not be "
                                          "written: the drive reported an error."),
                           lineOfTheFlush()}));
    EXPECT_EQ(engine.lastReport()->manifestPath, QStringLiteral("Failed"));
}

TEST_F(WriteBackTest, isReportedInALaterRunToo)
{
    makeFiles(40, 50'000, 1);
    run({documents});
    EXPECT_EQ(progress().errors, QStringList());
    makeFiles(40, 50'000, 2);
    whenCopied(40, [this] { loseWrites(); });
    run({documents});
    EXPECT_TRUE(progress().errors.contains(lineOfTheFlush()));
}

TEST_F(WriteBackTest, ofNewCopiesIsALineOfEachAndLeavesTheOldOnes)
{
    makeFiles(40, 50'000, 1);
    run({documents});
    ASSERT_EQ(progress().errors, QStringList());
    makeFiles(40, 50'000, 2);
    loseWrites();
    run({documents});
    EXPECT_EQ(progress().filesCopied, 0);
    EXPECT_EQ(progress().filesSkipped, 40);
    const QByteArrayList names = walkingOrder();
    EXPECT_EQ(progress().errors.value(0),
              skipLine(names.first(), "written through to the drive: the drive reported an error."));
    for (const QByteArray& name : names) {
        EXPECT_EQ(progress().errors.filter(skipLine(name, "")).size(), 1) << name.toStdString();
        EXPECT_EQ(mirroredVersion(name), 1);
    }
    EXPECT_THAT(temporaryFiles(drive), ::testing::IsEmpty());
}

} // namespace
} // namespace keelbright
