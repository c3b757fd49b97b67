#include "tests/backup/PreflightServiceTest.h"
#include "tests/support/TemporaryVolume.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// Sources and destinations that lie elsewhere than their paths say.
class PreflightPlacesTest : public PreflightServiceTest
{};

TEST_F(PreflightPlacesTest, refusesADestinationInsideASourceThatIsALink)
{
    destination = mac.makeFolder("Volumes/Data/Documents/Backup");
    mac.makeFolder("Users/mira");
    std::filesystem::create_directory_symlink(
        standardPath(mac.root().appendingNative("Volumes/Data/Documents")),
        standardPath(mac.root().appendingNative("Users/mira/Documents")));
    EXPECT_EQ(run({source("Users/mira/Documents")}).errors,
              QStringList({u"Destination is inside source folder Documents, causing an infinite loop."_s,
                           noValidSource}));
}

TEST_F(PreflightPlacesTest, refusesADestinationInsideASourceThatIsReachedByTheFolderAround)
{
    mac.makeFolder("Users");
    EXPECT_EQ(run({source("Users/../Volumes")}).errors,
              QStringList({u"Destination is inside source folder Volumes, causing an infinite loop."_s,
                           noValidSource}));
}

TEST_F(PreflightPlacesTest, refusesALinkThatLeadsIntoTheDestination)
{
    mac.makeFolder("Volumes/Anchor/old");
    std::filesystem::create_directory_symlink(standardPath(destination.appendingNative("old")),
                                              standardPath(mac.root().appendingNative("Link")));
    EXPECT_EQ(run({source("Link")}).errors,
              QStringList({u"Source folder Link is already inside the destination."_s, noValidSource}));
}

TEST_F(PreflightPlacesTest, comparesResolvedPathsByTheirComponents)
{
    mac.makeFolder("Volumes/Anch");
    std::filesystem::create_directory_symlink(standardPath(mac.root().appendingNative("Volumes/Anch")),
                                              standardPath(mac.root().appendingNative("Link")));
    EXPECT_EQ(run({source("Link")}).errors, QStringList());
}

TEST_F(PreflightPlacesTest, refusesASourceThatIsAFolderOfTheDestinationMountedASecondTime)
{
    const TemporaryVolume mounted(mac.makeFolder("Users/mira/Mounted"),
                                  mac.makeFolder("Volumes/Anchor/Keelbright/old"));
    if (!mounted.isMounted())
        GTEST_SKIP() << "mounting a folder a second time is not permitted here";
    mac.makeFolder("Users/mira/Mounted/below");
    for (const QByteArray name : {"Users/mira/Mounted", "Users/mira/Mounted/below"}) {
        const BackupSource own = source(name);
        EXPECT_EQ(
            run({own}).errors,
            QStringList({u"Source folder %1 is already inside the destination."_s.arg(own.displayName()),
                         noValidSource}));
    }
}

TEST_F(PreflightPlacesTest, refusesADestinationInsideASourceThatIsMountedASecondTime)
{
    const TemporaryVolume mounted(mac.makeFolder("Users/mira/Mounted"),
                                  mac.root().appendingNative("Volumes"));
    if (!mounted.isMounted())
        GTEST_SKIP() << "mounting a folder a second time is not permitted here";
    EXPECT_EQ(run({source("Users/mira/Mounted")}).errors,
              QStringList({u"Destination is inside source folder Mounted, causing an infinite loop."_s,
                           noValidSource}));
}

TEST_F(PreflightPlacesTest, acceptsASourceThatIsMountedFromBesideTheDestination)
{
    const TemporaryVolume mounted(mac.makeFolder("Users/mira/Mounted"), mac.makeFolder("Volumes/Anch"));
    if (!mounted.isMounted())
        GTEST_SKIP() << "mounting a folder a second time is not permitted here";
    EXPECT_EQ(run({source("Users/mira/Mounted")}).errors, QStringList());
}

} // namespace
} // namespace keelbright::testing
