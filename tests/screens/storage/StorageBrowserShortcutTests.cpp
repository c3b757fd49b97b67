#include "tests/screens/shared/ListDriver.h"
#include "tests/screens/storage/StorageBrowserViewFixture.h"

#include <QTest>
#include <QThread>
#include <filesystem>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ViewMode = StorageBrowserModel::ViewMode;

namespace {

/// Records the paths that the main thread asks the file system about.
class MainThreadQuestions : public HeldFileManager
{
public:
    using HeldFileManager::HeldFileManager;

    ~MainThreadQuestions() override { finish(); }

    MainThreadQuestions(const MainThreadQuestions&) = delete;
    MainThreadQuestions& operator=(const MainThreadQuestions&) = delete;

    [[nodiscard]] const QStringList& questions() const { return m_questions; }

    [[nodiscard]] FileExistence fileExists(const FileURL& url) const override
    {
        record(url);
        return HeldFileManager::fileExists(url);
    }

    [[nodiscard]] std::optional<qint64> fileSize(const FileURL& url) const override
    {
        record(url);
        return HeldFileManager::fileSize(url);
    }

    [[nodiscard]] std::expected<QList<DirectoryEntry>, FileError>
    contentsOfDirectory(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        record(url);
        return HeldFileManager::contentsOfDirectory(url, options);
    }

    [[nodiscard]] std::expected<std::unique_ptr<DirectoryEnumerator>, FileError>
    enumerator(const FileURL& url, DirectoryEnumerator::Options options) const override
    {
        record(url);
        return HeldFileManager::enumerator(url, options);
    }

private:
    void record(const FileURL& url) const
    {
        if (QThread::currentThread() == QCoreApplication::instance()->thread())
            m_questions.append(url.path());
    }

    mutable QStringList m_questions; ///< written by the main thread alone
};

} // namespace

using StorageBrowserShortcutTests = StorageBrowserViewFixture;

TEST_F(StorageBrowserShortcutTests, theShortcutsHaveTheirIcons)
{
    StorageBrowserView view(context());
    EXPECT_EQ(button(view, u"Home"_s)->symbol(), u"house.fill"_s);
    EXPECT_EQ(button(view, u"Documents"_s)->symbol(), u"doc.fill"_s);
    EXPECT_EQ(button(view, u"Desktop"_s)->symbol(), u"menubar.rectangle"_s);
    EXPECT_EQ(button(view, u"Downloads"_s)->symbol(), u"arrow.down.circle.fill"_s);
    EXPECT_EQ(button(view, u"Pictures"_s)->symbol(), u"photo.fill"_s);
    EXPECT_EQ(button(view, u"Choose Folder"_s)->symbol(), u"folder.badge.plus"_s);
}

TEST_F(StorageBrowserShortcutTests, aShortcutToAFolderThatDoesNotExistIsDisabled)
{
    StorageBrowserView view(context());
    show(view);
    turnUntil([&] { return !button(view, u"Desktop"_s)->isEnabled(); });
    EXPECT_TRUE(button(view, u"Home"_s)->isEnabled());
    EXPECT_TRUE(button(view, u"Documents"_s)->isEnabled());
    EXPECT_FALSE(button(view, u"Downloads"_s)->isEnabled());
    EXPECT_TRUE(button(view, u"Pictures"_s)->isEnabled());
}

TEST_F(StorageBrowserShortcutTests, eachAppearanceLooksForTheFoldersOfTheShortcuts)
{
    StorageBrowserView view(context());
    show(view);
    turnUntil([&] { return !button(view, u"Desktop"_s)->isEnabled(); });
    view.hide();
    mac.makeFolder("Users/mira/Desktop");
    view.show();
    turnUntil([&] { return button(view, u"Desktop"_s)->isEnabled(); });
}

TEST_F(StorageBrowserShortcutTests, theRefreshKeyLooksForTheFoldersOfTheShortcuts)
{
    StorageBrowserView view(context());
    show(view);
    turnUntil([&] { return !button(view, u"Desktop"_s)->isEnabled(); });
    mac.makeFolder("Users/mira/Desktop");
    QTest::keyClick(&view, Qt::Key_F5);
    turnUntil([&] { return button(view, u"Desktop"_s)->isEnabled(); });
}

TEST_F(StorageBrowserShortcutTests, aMoveToTheTrashLooksForTheFoldersOfTheShortcuts)
{
    StorageBrowserView view(context());
    browse(view, documents());
    turnUntil([&] { return button(view, u"Pictures"_s)->isEnabled(); });
    std::filesystem::remove_all(mac.home().appending(u"Pictures"_s).nativePath().toStdString());
    EXPECT_TRUE(ListDriver(*list(view)).press(rowOf(list(view), u"Work"_s), RowActionId::trash));
    alerts.confirm();
    turnUntil([&] { return !button(view, u"Pictures"_s)->isEnabled(); });
    waitForLevel(view.model());
}

TEST_F(StorageBrowserShortcutTests, noRedrawAsksTheFileSystemForAnythingOnTheMainThread)
{
    MainThreadQuestions asked(mac.root());
    const FileManagerGuard guard(asked);
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    for (const ViewMode mode : StorageBrowserModel::allViewModes())
        choose(view, mode);
    view.model().setSortOrder(StorageBrowserModel::SortOrder::name);
    turnFrame();
    view.hide();
    view.show();
    turnUntil([&] { return !button(view, u"Desktop"_s)->isEnabled(); });
    EXPECT_EQ(asked.questions(), QStringList());
}

TEST_F(StorageBrowserShortcutTests, aShortcutMeasuresItsFolderAndShowsIt)
{
    HeldWalks held(mac.root());
    const FileManagerGuard guard(held);
    StorageBrowserView view(context());
    show(view);
    held.holdNextLookAt(documents());
    button(view, u"Documents"_s)->click();
    ASSERT_TRUE(held.waitUntilHeld());
    turnFrame();
    EXPECT_EQ(textsIn(view).last(), u"Calculating folder sizes…"_s);
    EXPECT_TRUE(button(view, u"Home"_s)->isEnabled());
    held.letGo();
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(textsIn(view).at(1), u"10 KB in Documents"_s);
    EXPECT_EQ(rows(list(view)), (QStringList{u"Work 7 KB"_s, u"c.txt 2 KB"_s, u"d.JPG 1 KB"_s}));
}

TEST_F(StorageBrowserShortcutTests, eachShortcutLeadsToItsFolder)
{
    for (const QByteArray name : {"Desktop", "Downloads"})
        mac.makeFolder("Users/mira/" + name);
    StorageBrowserView view(context());
    show(view);
    const FileURL home = mac.home();
    const QList<std::pair<QString, FileURL>> shortcuts{{u"Home"_s, home},
                                                       {u"Documents"_s, home.appending(u"Documents"_s)},
                                                       {u"Desktop"_s, home.appending(u"Desktop"_s)},
                                                       {u"Downloads"_s, home.appending(u"Downloads"_s)},
                                                       {u"Pictures"_s, home.appending(u"Pictures"_s)}};
    for (const auto& [label, folder] : shortcuts) {
        button(view, label)->click();
        waitForLevel(view.model());
        ASSERT_EQ(view.model().stack().size(), 1);
        EXPECT_EQ(view.model().currentURL(), folder);
    }
}

TEST_F(StorageBrowserShortcutTests, choosingTheSameShortcutAgainMeasuresAgain)
{
    StorageBrowserView view(context());
    browse(view, documents());
    drillIn(view, u"Work"_s);
    write("e.mov", 20'000);
    button(view, u"Documents"_s)->click();
    waitForLevel(view.model());
    turnFrame();
    EXPECT_EQ(view.model().stack().size(), 1);
    EXPECT_EQ(rows(list(view)).first(), u"e.mov 20 KB"_s);
}

} // namespace keelbright::testing
