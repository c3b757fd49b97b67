#include "KeelbrightCore/platform/files/Package.h"

#include <QByteArray>
#include <gtest/gtest.h>

namespace keelbright {

TEST(PackageTests, theKnownKindsArePackages)
{
    for (const char* name : {"Mail.app",
                             "a.bundle",
                             "b.kext",
                             "c.plugin",
                             "d.prefPane",
                             "Photos Library.photoslibrary",
                             "letter.rtfd",
                             "thesis.pages",
                             "budget.numbers",
                             "talk.key",
                             "Keel.xcodeproj",
                             "wide.xcworkspace",
                             "disk.sparsebundle",
                             "old.migratedphotolibrary",
                             "film.fcpbundle",
                             "song.band",
                             "song.logicx",
                             "share.appex",
                             "symbols.dSYM",
                             "windows.pvm",
                             "a.xpc",
                             "abc.abbu"})
        EXPECT_TRUE(isPackage(name)) << name;
}

TEST(PackageTests, otherFoldersAreNot)
{
    for (const char* name :
         {"", "Documents", "app", "Qt.framework", "de.lproj", "photos", "archive.zip", "2024.01", "v1.2",
          "x.appx", "x.ap", "my.apps", "a.app ", "a.migratedphotolibraryx"})
        EXPECT_FALSE(isPackage(name)) << name;
}

TEST(PackageTests, letterCaseIsIgnored)
{
    EXPECT_TRUE(isPackage("MAIL.APP"));
    EXPECT_TRUE(isPackage("x.PrefPane"));
    EXPECT_TRUE(isPackage("x.XCODEPROJ"));
}

TEST(PackageTests, onlyTheLastExtensionCounts)
{
    EXPECT_TRUE(isPackage("a.b.app"));
    EXPECT_FALSE(isPackage("a.app.old"));
}

TEST(PackageTests, aNameThatIsAllExtensionHasNone)
{
    EXPECT_FALSE(isPackage(".app"));
    EXPECT_FALSE(isPackage("name.app."));
    EXPECT_FALSE(isPackage("."));
    EXPECT_FALSE(isPackage(".."));
}

TEST(PackageTests, namesNeedNotBeUtf8)
{
    EXPECT_TRUE(isPackage("\xFF\xFE.app"));
    EXPECT_FALSE(isPackage("x.\xFF\xFE"));
    EXPECT_FALSE(isPackage("x.ap\xC3\x9F"));
}

TEST(PackageTests, aNameOf255BytesIsCheckedToo)
{
    EXPECT_TRUE(isPackage(QByteArray(251, 'n') + ".app"));
    EXPECT_FALSE(isPackage("n." + QByteArray(253, 'a')));
}

} // namespace keelbright
