#include "KeelbrightCore/platform/files/NameForms.h"

#include <gtest/gtest.h>

namespace keelbright {
namespace {

TEST(NameForms, findsASecondEncodingOfAName)
{
    NameForms forms;
    EXPECT_EQ(forms.twinOf("caf\xc3\xa9"), "");
    EXPECT_EQ(forms.twinOf("caf\xc3\xa9"), "") << "the same name is no other";
    EXPECT_EQ(forms.twinOf("cafe\xcc\x81"), "caf\xc3\xa9");
    EXPECT_EQ(forms.twinOf("cafe\xcc\x81"), "caf\xc3\xa9") << "and so it stays";
}

TEST(NameForms, keepsOtherNamesApart)
{
    NameForms forms;
    for (const char* name :
         {"cafe", "cafe", "CAFE", "caf\xc3\xa8", "caf\xc3\xa9", "caf\xff", "caf\xfe", "\xe6\x97\xa5"})
        EXPECT_EQ(forms.twinOf(name), "") << name;
}

} // namespace
} // namespace keelbright
