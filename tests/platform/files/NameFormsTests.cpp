#include "KeelbrightCore/platform/files/NameForms.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"
#include "tests/support/TestMac.h"

#include <fcntl.h>
#include <gtest/gtest.h>

namespace keelbright {
namespace {

TEST(NameForms, findsASecondEncodingOfAName)
{
    NameForms forms;
    EXPECT_EQ(forms.twinOf("caf\xc3\xa9", false), "");
    EXPECT_EQ(forms.twinOf("caf\xc3\xa9", false), "") << "the same name is no other";
    EXPECT_EQ(forms.twinOf("cafe\xcc\x81", false), "caf\xc3\xa9");
    EXPECT_EQ(forms.twinOf("cafe\xcc\x81", false), "caf\xc3\xa9") << "and so it stays";
}

TEST(NameForms, keepsOtherNamesApart)
{
    NameForms forms;
    for (const char* name :
         {"cafe", "cafe", "CAFE", "caf\xc3\xa8", "caf\xc3\xa9", "caf\xff", "caf\xfe", "\xe6\x97\xa5"})
        EXPECT_EQ(forms.twinOf(name, false), "") << name;
}

TEST(NameForms, findsASecondEncodingInOtherLettersWhereTheDriveFoldsCase)
{
    NameForms forms;
    EXPECT_EQ(forms.twinOf("Caf\xc3\xa9", true), "");
    EXPECT_EQ(forms.twinOf("cafE\xcc\x81", true), "Caf\xc3\xa9");
    NameForms kept;
    EXPECT_EQ(kept.twinOf("Caf\xc3\xa9", false), "");
    EXPECT_EQ(kept.twinOf("cafE\xcc\x81", false), "");
}

class NameFormClaimsTest : public ::testing::Test
{
protected:
    QByteArray twinOf(const QByteArray& path, const QByteArray& name)
    {
        return claims.twinOf(folder.get(), path, name, false);
    }

    const QByteArray composed = "caf\xc3\xa9";
    const QByteArray decomposed = "cafe\xcc\x81";
    testing::TestMac mac;
    FileURL place = mac.makeFolder("drive");
    FileDescriptor folder{::open(place.nativePath().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    NameFormClaims claims;
};

TEST_F(NameFormClaimsTest, findsWhatAnEarlierSourceHasPutThere)
{
    EXPECT_EQ(twinOf("Documents", composed), "");
    mac.writeFile("drive/" + composed, "x");
    EXPECT_EQ(twinOf("Documents", composed), "") << "the same name is no other";
    EXPECT_EQ(twinOf("Documents", decomposed), composed);
}

TEST_F(NameFormClaimsTest, keepsFoldersApart)
{
    mac.writeFile("drive/" + composed, "x");
    EXPECT_EQ(twinOf("Documents", composed), "");
    EXPECT_EQ(twinOf("Pictures", decomposed), "");
}

TEST_F(NameFormClaimsTest, doNotCountWhatAnEarlierRunHasLeft)
{
    mac.writeFile("drive/" + composed, "x");
    EXPECT_EQ(twinOf("Documents", decomposed), "");
}

TEST_F(NameFormClaimsTest, doNotCountWhatIsNoLongerThere)
{
    EXPECT_EQ(twinOf("Documents", composed), "");
    EXPECT_EQ(twinOf("Documents", decomposed), "");
}

} // namespace
} // namespace keelbright
