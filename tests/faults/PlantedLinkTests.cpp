#include "tests/faults/FaultTest.h"

#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TestMac;

constexpr int fileCount = 30;

/// Links on the drive that lead out of it, to a folder with a precious file.
class PlantedLinkTest : public testing::FaultTest
{
protected:
    void SetUp() override
    {
        makeFiles(fileCount, 1'000);
        makeFile("folder/inside", 1'000);
        mac.writeFile("Outside/precious", "precious");
    }

    /// Replaces the item at a path of the drive by a link to `target`.
    void plant(const QByteArray& path, const FileURL& target) const
    {
        const QByteArray place = drive.appendingNative(path).nativePath();
        ::rename(place.constData(), (place + " of before").constData());
        mac.makeFolder("Volumes/Drive/" + path.first(std::max<qsizetype>(path.lastIndexOf('/'), 0)));
        ASSERT_EQ(::symlink(target.nativePath().constData(), place.constData()), 0);
    }

    [[nodiscard]] bool isRegularFile(const FileURL& url) const
    {
        struct stat status = {};
        return ::lstat(url.nativePath().constData(), &status) == 0 && S_ISREG(status.st_mode);
    }

    void expectNothingOutside() const
    {
        EXPECT_THAT(everythingBelow(outside), ElementsAre("precious"));
        EXPECT_EQ(TestMac::read(outside.appendingNative("precious")), "precious");
    }

    const FileURL outside = mac.makeFolder("Outside");
    const FileURL precious = outside.appendingNative("precious");
};

class LinkForAFolder : public PlantedLinkTest, public ::testing::WithParamInterface<const char*>
{};

TEST_P(LinkForAFolder, isNotFollowedIfItIsThereBeforeTheRun)
{
    plant(GetParam(), outside);
    run({documents});
    expectNothingOutside();
    const QString lines = progress().errors.join(u'\n') + engine.lastError().value_or(QString());
    EXPECT_TRUE(lines.contains(QStringLiteral("a symbolic link stands in the place of a folder")))
        << lines.toStdString();
    EXPECT_EQ(lines.count(u'\n'), 0) << lines.toStdString();
}

TEST_P(LinkForAFolder, isNotFollowedIfItAppearsDuringARun)
{
    whenCopied(5, [this] { plant(GetParam(), outside); });
    run({documents});
    expectNothingOutside();
    EXPECT_TRUE(engine.lastReport().has_value());
    EXPECT_EQ(progress().filesCopied + progress().filesSkipped, fileCount + 1);
    EXPECT_GE(progress().filesCopied, 5);
}

TEST_P(LinkForAFolder, isNotFollowedIfItAppearsWhenTheLastFileIsCopied)
{
    whenCopied(fileCount + 1, [this] { plant(GetParam(), outside); });
    run({documents});
    expectNothingOutside();
    EXPECT_TRUE(engine.lastReport().has_value());
    EXPECT_EQ(progress().filesCopied, fileCount + 1);
}

INSTANTIATE_TEST_SUITE_P(AtEveryLevel, LinkForAFolder,
                         ::testing::Values("Keelbright", "Keelbright/miras Mac",
                                           "Keelbright/miras Mac/Latest", "Keelbright/miras Mac/Reports",
                                           "Keelbright/miras Mac/Latest/Personal Files",
                                           "Keelbright/miras Mac/Latest/Personal Files/Documents",
                                           "Keelbright/miras Mac/Latest/Personal Files/Documents/folder"));

TEST_F(PlantedLinkTest, isReplacedByTheFileWhoseNameItHas)
{
    const QByteArray manifest = "Keelbright/miras Mac/Latest/recovery-manifest.json";
    plant("Keelbright/miras Mac/Latest/Personal Files/Documents/" + fileName(3), precious);
    plant(manifest, precious);
    run({documents});
    expectNothingOutside();
    EXPECT_THAT(progress().errors, IsEmpty());
    EXPECT_EQ(mirroredVersion(fileName(3)), 1);
    EXPECT_TRUE(isRegularFile(mirrored("Documents/" + fileName(3))));
    EXPECT_TRUE(isRegularFile(drive.appendingNative(manifest)));
}

TEST_F(PlantedLinkTest, isReplacedByTheReportWhoseNameItHas)
{
    // One for each second of a minute, because the report is named by the time of the run's start.
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QByteArrayList names;
    for (int second = 0; second < 60; ++second) {
        const QByteArray stamp = now.addSecs(second).toString(QStringLiteral("yyyyMMdd-HHmmss")).toLatin1();
        names += {"backup-report-" + stamp + ".json", "backup-report-" + stamp + ".md"};
    }
    for (const QByteArray& name : names)
        plant("Keelbright/miras Mac/Reports/" + name, precious);
    run({documents});
    expectNothingOutside();
    EXPECT_THAT(progress().errors, IsEmpty());
    const auto written = std::ranges::count_if(
        names, [&](const QByteArray& name) { return isRegularFile(reports().appendingNative(name)); });
    EXPECT_EQ(written, 2);
}

} // namespace
} // namespace keelbright
