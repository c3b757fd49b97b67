#include "KeelbrightCore/backup/RecommendedFolder.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

RecommendedFolder photosLibrary()
{
    return {QUuid::createUuid(), u"Photos Library"_s,   u"Pictures/Photos Library.photoslibrary"_s,
            u"Can be large."_s,  u"photo.stack.fill"_s, false};
}

} // namespace

TEST(RecommendedFolder, liesBelowTheHome)
{
    const TestMac mac;
    EXPECT_EQ(photosLibrary().url().nativePath(),
              mac.home().nativePath() + "/Pictures/Photos Library.photoslibrary");
}

TEST(RecommendedFolder, existsAsSoonAsTheFolderDoes)
{
    const TestMac mac;
    const RecommendedFolder folder = photosLibrary();
    EXPECT_FALSE(folder.exists());
    mac.makeFolder("Users/mira/Pictures/Photos Library.photoslibrary");
    EXPECT_TRUE(folder.exists());
}

TEST(RecommendedFolder, asASourceItIsAlwaysEnabledAndHasANewId)
{
    const TestMac mac;
    const RecommendedFolder folder = photosLibrary();
    const BackupSource first = folder.asBackupSource();
    const BackupSource second = folder.asBackupSource();
    EXPECT_TRUE(first.isEnabled);
    EXPECT_EQ(first.url, folder.url());
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, folder.id);
    EXPECT_NE(first.id, second.id);
}

} // namespace keelbright::testing
