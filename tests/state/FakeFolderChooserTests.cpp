#include "tests/support/FakeFolderChooser.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(FakeFolderChooser, aChooserThatNeverCameFailsTheTest)
{
    EXPECT_NONFATAL_FAILURE(
        {
            FakeFolderChooser chooser;
            chooser.willChoose({FileURL()});
        },
        "1 expected folder chooser(s) never came");
}

TEST(FakeFolderChooser, aChooserThatNobodyExpectedFailsTheTest)
{
    FakeFolderChooser chooser;
    EXPECT_NONFATAL_FAILURE(chooser.chooseFolders({.message = u"Where to?"_s, .prompt = {}}, {}),
                            "a folder chooser came unexpectedly: Where to?");
}

} // namespace keelbright::testing
