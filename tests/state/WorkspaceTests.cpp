#include "Keelbright/state/Workspace.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

TEST(Workspace, personalFilesThatExistAreOpened)
{
    const TestMac mac;
    const FileURL folder = mac.makeFolder("Volumes/Anchor/Personal Files");
    FakeWorkspace workspace;
    openPersonalFiles(workspace, folder.path());
    EXPECT_EQ(workspace.opened, QStringList{folder.path()});
}

TEST(Workspace, whereTheFolderIsGoneItsParentIsOpened)
{
    const TestMac mac;
    FakeWorkspace workspace;
    openPersonalFiles(workspace, mac.root().path() + u"/Volumes/Anchor/Personal Files"_s);
    EXPECT_EQ(workspace.opened, QStringList{mac.root().path() + u"/Volumes/Anchor"_s});
}

TEST(Workspace, aFileIsOpenedItself)
{
    const TestMac mac;
    const FileURL file = mac.writeFile("Volumes/Anchor/recovery-manifest.json", "{}");
    FakeWorkspace workspace;
    openPersonalFiles(workspace, file.path());
    EXPECT_EQ(workspace.opened, QStringList{file.path()});
}

} // namespace keelbright::testing
