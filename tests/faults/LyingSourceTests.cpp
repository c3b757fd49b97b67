#include "tests/faults/FaultTest.h"
#include "tests/support/FailingDrive.h"

#include <QDir>
#include <QFile>

namespace keelbright {
namespace {

using testing::FailingDrive;
using ::testing::IsEmpty;
using testing::TestMac;

/// What a source says of every file, and what can be read of it.
struct Lie
{
    const char* kind;
    qint64 size;
    qsizetype content;
};

void PrintTo(const Lie& lie, std::ostream* stream)
{
    *stream << lie.kind << " " << lie.size << " for " << lie.content << " bytes";
}

/// Sources that give a wrong size, as some network drives and drives in user space do.
class LyingSourceTest : public testing::FaultTest, public ::testing::WithParamInterface<Lie>
{
protected:
    /// Backs up a file "live" with this content from a source that lies about its size.
    void runLying(const Lie& lie, const QByteArray& content)
    {
        const FailingDrive lying(QString::fromUtf8(lie.kind), lie.size, QStringLiteral("EIO"));
        if (!lying.reasonMissing().empty())
            GTEST_SKIP() << lying.reasonMissing();
        const FileURL file = mac.writeFile("live", content);
        QFile::rename(documents.path(), documents.path() + QStringLiteral(" away"));
        const FileURL place = lying.folder().appendingNative("Documents");
        ASSERT_TRUE(QDir().mkpath(place.path()));
        ASSERT_TRUE(QFile::copy(file.path(), place.appendingNative("live").path()));
        run({lying.root().appendingNative("Documents")});
    }
};

class SourceThatGivesMore : public LyingSourceTest
{};

TEST_P(SourceThatGivesMore, isCopiedToItsEnd)
{
    const QByteArray content(GetParam().content, 'm');
    runLying(GetParam(), content);
    if (IsSkipped())
        return;
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(progress().filesCopied, 1);
    EXPECT_TRUE(TestMac::read(mirrored("Documents/live")) == content);
}

INSTANTIATE_TEST_SUITE_P(Lies, SourceThatGivesMore,
                         ::testing::Values(Lie{"size", 0, 5'000}, Lie{"size", 1'000, 3'000},
                                           Lie{"blocks", 1'000, 3'000}, Lie{"size", 500'000, 1'500'000},
                                           Lie{"size", 5'000, 5'000}));

class SourceThatGivesLess : public LyingSourceTest
{};

TEST_P(SourceThatGivesLess, isReportedAndKeepsTheOldCopy)
{
    mac.writeFile("Users/mira/Documents/live", "the old copy");
    run({documents});
    ASSERT_THAT(progress().errors, IsEmpty());
    runLying(GetParam(), QByteArray(GetParam().content, 'l'));
    if (IsSkipped())
        return;
    EXPECT_EQ(progress().errors, QStringList{skipLine("live", "read: it ends before its size says.")});
    EXPECT_EQ(progress().filesCopied, 0);
    EXPECT_EQ(progress().filesSkipped, 1);
    EXPECT_EQ(TestMac::read(mirrored("Documents/live")), "the old copy");
    EXPECT_THAT(temporaryFiles(drive), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Lies, SourceThatGivesLess,
                         ::testing::Values(Lie{"size", 50'000, 20'000}, Lie{"blocks", 50'000, 20'000},
                                           Lie{"cached-size", 50'000, 20'000},
                                           Lie{"size", 1'000'000, 400'000},
                                           Lie{"cached-size", 1'000'000, 400'000}));

} // namespace
} // namespace keelbright
