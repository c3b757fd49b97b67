// What a backup does with each entry below a source: the rule that the run, its estimate and the check ask.

#include "KeelbrightCore/backup/FileScanner.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <unistd.h>

namespace keelbright::testing {

using FileScanner::Handling;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

namespace {

class ItemHandlingTests : public ::testing::Test
{
protected:
    void write(const QByteArray& path) const { mac.writeFile("Source/" + path, "12345"); }

    void link(const QByteArray& path, const char* target) const
    {
        ASSERT_EQ(::symlink(target, folder.appendingNative(path).nativePath().constData()), 0);
    }

    /// One line for each item of a backup's walk, sorted.
    [[nodiscard]] QByteArrayList handlings(const FileScanner::LeftOut& isLeftOut) const
    {
        static const QHash<Handling, QByteArray> names = {{Handling::leftOut, "left out "},
                                                          {Handling::skipped, "skipped "},
                                                          {Handling::folder, "folder "},
                                                          {Handling::copied, "copied "}};
        const auto walk = DirectoryEnumerator::open(folder, DirectoryEnumerator::Option::skipsHiddenFiles);
        QByteArrayList lines;
        while ((*walk)->next()) {
            const QByteArray name = (*walk)->name().toByteArray();
            lines.append(names.value(FileScanner::handlingOf(**walk, isLeftOut)) + name);
        }
        std::ranges::sort(lines);
        return lines;
    }

    TestMac mac;
    FileURL folder = mac.makeFolder("Source");
};

} // namespace

TEST_F(ItemHandlingTests, eachItemIsHandledInOneOfFourWays)
{
    write("plain");
    write("folder/inside");
    write("node_modules/below");
    write("Tool.app/Contents");
    write("image.dmg");
    link("to a folder", "folder");
    link("to a file", "plain");
    link("to nowhere", "missing");
    EXPECT_THAT(handlings({}),
                ElementsAre("copied Contents", "copied inside", "copied plain", "copied to a file",
                            "copied to nowhere", "folder folder", "folder to a folder", "skipped Tool.app",
                            "skipped image.dmg", "skipped node_modules"));
}

TEST_F(ItemHandlingTests, aFolderThatIsLeftOutIsNotCountedAsSkippedAndNotWalked)
{
    write("own/below");
    write("build/own/below");
    write("folder/own/below");
    write("folder/plain");
    link("link", "own");
    QByteArrayList asked;
    const auto isOwn = [&asked](const DirectoryEnumerator& item) {
        asked.append(item.name().toByteArray());
        return item.name() == "own" || item.name() == "build";
    };
    EXPECT_THAT(handlings(isOwn), ElementsAre("copied plain", "folder folder", "folder link",
                                              "left out build", "left out own", "left out own"));
    EXPECT_THAT(asked, UnorderedElementsAre("own", "own", "build", "folder")) << "folders alone are";
}

} // namespace keelbright::testing
