#include "Keelbright/state/Workspace.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QList>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class RecordingWorkspace : public Workspace
{
public:
    void open(const FileURL& url) override { opened.append(url); }

    QList<FileURL> opened;
};

} // namespace

TEST(Workspace, personalFilesThatExistAreOpened)
{
    const TestMac mac;
    const FileURL folder = mac.makeFolder("Volumes/Anchor/Personal Files");
    RecordingWorkspace workspace;
    openPersonalFiles(workspace, folder.path());
    EXPECT_EQ(workspace.opened, QList{folder});
}

TEST(Workspace, whereTheFolderIsGoneItsParentIsOpened)
{
    const TestMac mac;
    RecordingWorkspace workspace;
    openPersonalFiles(workspace, mac.root().path() + u"/Volumes/Anchor/Personal Files"_s);
    EXPECT_EQ(workspace.opened, QList{mac.root().appending(u"Volumes/Anchor"_s)});
}

TEST(Workspace, aFileIsOpenedItself)
{
    const TestMac mac;
    const FileURL file = mac.writeFile("Volumes/Anchor/recovery-manifest.json", "{}");
    RecordingWorkspace workspace;
    openPersonalFiles(workspace, file.path());
    EXPECT_EQ(workspace.opened, QList{file});
}

} // namespace keelbright::testing
