#include "Keelbright/screens/storage/treemap/TreemapView.h"
#include "tests/gallery/ScreenStates.h"
#include "tests/gallery/Stage.h"

#include <QTest>
#include <filesystem>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 megabyte = 1'000'000;
constexpr qint64 gigabyte = 1'000 * megabyte;

/// A sparse file below the home, which has this size but takes no space.
void addFile(Stage& stage, const QString& path, qint64 bytes)
{
    const FileURL file = stage.mac.writeFile("Users/mira/" + path.toUtf8(), {});
    std::filesystem::resize_file(file.nativePath().toStdString(), static_cast<std::uintmax_t>(bytes));
}

/// A home with the files of ten years.
void addTenYears(Stage& stage)
{
    addFile(stage, u"Photos/2021/originals.zip"_s, 184'300 * megabyte);
    addFile(stage, u"Movies/Summer at the Lake.mov"_s, 92'100 * megabyte);
    addFile(stage, u"Library/Mail/archive.mbox"_s, 61'200 * megabyte);
    addFile(stage, u"Virtual Machines/Test Bench.img"_s, 52 * gigabyte);
    addFile(stage, u"Documents/Thesis/scans.pdf"_s, 38'400 * megabyte);
    addFile(stage, u"Downloads/Installer.dmg"_s, 21'900 * megabyte);
    addFile(stage, u"Music/Concert.flac"_s, 17'800 * megabyte);
    addFile(stage, u"Projects/keel/main.cpp"_s, 14'100 * megabyte);
    addFile(stage, u"Pictures/IMG_2231.jpg"_s, 9'800 * megabyte);
    addFile(stage, u"Archive 2019/old.zip"_s, 4'200 * megabyte);
    addFile(stage, u"Desktop/Notes.txt"_s, 1'400 * megabyte);
    addFile(stage, u"Holiday 2018.mp4"_s, 6'100 * megabyte);
    addFile(stage, u"disk.dmg"_s, 2'900 * megabyte);
    addFile(stage, u"song.flac"_s, 40 * megabyte);
    addFile(stage, u"IMG_0001.jpg"_s, 3 * megabyte);
    addFile(stage, u"main.cpp"_s, 2'000);
    addFile(stage,
            u"A name that goes on and on and on, longer than anyone would like it to be, and then some "
            "more still.sparsebundle"_s,
            3'300 * megabyte);
}

void playStart(Stage& stage)
{
    stage.mira.addPersonalFiles();
    stage.goTo(Screen::storageBrowser);
}

void playBusy(Stage& stage)
{
    stage.mira.addPersonalFiles();
    stage.goTo(Screen::storageBrowser);
    stage.files.holdNextLookAt(stage.mac.home());
    stage.press(u"Home"_s);
    EXPECT_TRUE(stage.files.waitUntilHeld());
    Stage::turnFrames();
}

void playList(Stage& stage)
{
    addTenYears(stage);
    stage.goTo(Screen::storageBrowser);
    stage.press(u"Home"_s);
    stage.settle();
}

void playListWithRow(Stage& stage)
{
    playList(stage);
    stage.pick(u"Name"_s);
    stage.choose(u"Documents"_s);
}

void playListHighContrast(Stage& stage)
{
    playListWithRow(stage);
    Stage::raiseContrast();
}

void playMap(Stage& stage)
{
    playList(stage);
    stage.press(u"Treemap"_s);
    stage.settle();
}

void playLargest(Stage& stage)
{
    playList(stage);
    stage.press(u"Largest Files"_s);
    stage.settle();
}

void playEmptyFolder(Stage& stage)
{
    stage.mac.makeFolder("Users/mira/Pictures");
    stage.goTo(Screen::storageBrowser);
    stage.press(u"Pictures"_s);
    stage.settle();
}

void playEmptyMap(Stage& stage)
{
    playEmptyFolder(stage);
    stage.press(u"Treemap"_s);
    stage.settle();
}

void playNoLargest(Stage& stage)
{
    playEmptyFolder(stage);
    stage.press(u"Largest Files"_s);
    stage.settle();
}

void playDeep(Stage& stage)
{
    QString path = u"Documents"_s;
    for (int level = 1; level <= 9; ++level)
        path += u"/A folder with quite a long name %1"_s.arg(level);
    addFile(stage, path + u"/letter.txt"_s, megabyte);
    stage.goTo(Screen::storageBrowser);
    stage.press(u"Documents"_s);
    stage.settle();
    stage.press(u"Treemap"_s);
    for (int level = 1; level <= 9; ++level) {
        // The only cell of the map is the folder below.
        auto* map = stage.screen().findChild<TreemapView*>();
        ASSERT_NE(map, nullptr);
        QTest::mouseClick(map, Qt::LeftButton, {}, map->rect().center());
        stage.settle();
    }
    stage.press(u"List"_s);
    stage.settle();
}

} // namespace

QList<ScreenState> storageStates()
{
    return {
        {"storage", "start", playStart},
        {"storage", "busy", playBusy},
        {"storage", "list", playList, true},
        {"storage", "list-row", playListWithRow},
        {"storage", "high-contrast", playListHighContrast},
        {"storage", "treemap", playMap, true},
        {"storage", "largest", playLargest},
        {"storage", "empty-folder", playEmptyFolder},
        {"storage", "empty-treemap", playEmptyMap},
        {"storage", "no-files", playNoLargest},
        {"storage", "deep", playDeep},
    };
}

} // namespace keelbright::testing
