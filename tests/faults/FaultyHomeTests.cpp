#include "Keelbright/state/AppDetailVM.h"
#include "Keelbright/state/JunkCleanerVM.h"
#include "tests/faults/CareFaultTest.h"
#include "tests/faults/Unchangeable.h"
#include "tests/support/TemporaryVolume.h"
#include "tests/support/UnprivilegedUser.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::reasonNoVolume;
using testing::TemporaryVolume;
using testing::TestMac;
using testing::Unchangeable;
using testing::UnprivilegedUser;

/// Cleans junk in homes where some of it can't be moved.
class FaultyHomeTest : public testing::CareFaultTest
{
protected:
    /// Makes a folder of junk with a file in it.
    FileURL makeCache(const QByteArray& name) const
    {
        mac.writeFile("Users/mira/Library/Caches/" + name + "/deep/file", "content of " + name);
        return mac.home().appendingNative("Library/Caches/" + name);
    }

    static QByteArray contentOf(const FileURL& cache)
    {
        return TestMac::read(cache.appendingNative("deep/file"));
    }

    /// Finds all junk and moves it to the Trash.
    void clean(JunkCleanerVM& model) const
    {
        model.scan();
        turnUntil([&model] { return !model.isScanning(); });
        model.selectAll();
        model.clean();
    }

    static QStringList listed(const JunkCleanerVM& model)
    {
        QStringList names;
        for (const JunkCategory& category : model.categories()) {
            for (const JunkItem& item : category.items)
                names.append(item.name());
        }
        return names;
    }

    [[nodiscard]] QByteArrayList inTrash(const char* folder = "files") const
    {
        const FileURL place = trash.appendingNative(folder);
        return exists(place) ? everythingBelow(place) : QByteArrayList();
    }

    /// Gives the home to the unprivileged user of `UnprivilegedUser`.
    void giveHomeAway() const
    {
        ASSERT_EQ(::chmod(mac.root().nativePath().constData(), 0755), 0);
        constexpr uid_t nobody = UnprivilegedUser::nobody;
        for (const char* folder :
             {"", "Library", "Library/Caches", ".local", ".local/share", ".local/share/Keelbright"}) {
            const FileURL url = mac.makeFolder(QByteArray("Users/mira/") + folder);
            ASSERT_EQ(::lchown(url.nativePath().constData(), nobody, nobody), 0);
        }
    }
};

/// Fills a drive to the last byte for its lifetime.
class Filled
{
public:
    explicit Filled(const FileURL& folder)
        : m_filler(folder.appendingNative("filler"))
    {
        const int file = ::open(m_filler.nativePath().constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        const QByteArray block(4'096, 'x');
        while (::write(file, block.constData(), static_cast<size_t>(block.size())) > 0) {
        }
        ::close(file);
    }

    ~Filled() { ::unlink(m_filler.nativePath().constData()); }

    Filled(const Filled&) = delete;
    Filled& operator=(const Filled&) = delete;

private:
    FileURL m_filler;
};

TEST_F(FaultyHomeTest, aFullHomeKeepsItsJunkUntilThereIsRoom)
{
    const TemporaryVolume home(mac.home());
    if (!home.isMounted())
        GTEST_SKIP() << reasonNoVolume;
    ActivityStore ownLog(mac.fileManager().applicationSupportDirectory());
    const FileURL large = makeCache("larger");
    const FileURL small = makeCache("small");
    JunkCleanerVM model(ownLog);
    {
        const Filled full(mac.home());
        clean(model);
        EXPECT_EQ(listed(model), (QStringList{u"larger"_s, u"small"_s}));
        EXPECT_EQ(contentOf(large), "content of larger");
        EXPECT_EQ(contentOf(small), "content of small");
        EXPECT_THAT(inTrash(), IsEmpty());
        EXPECT_THAT(inTrash("info"), IsEmpty());
        EXPECT_THAT(ownLog.load(), IsEmpty());
    }
    model.clean();
    EXPECT_THAT(listed(model), IsEmpty());
    EXPECT_EQ(contentOf(trash.appendingNative("files/larger")), "content of larger");
    EXPECT_EQ(ownLog.load().size(), 1);
}

TEST_F(FaultyHomeTest, aReadOnlyHomeKeepsItsJunk)
{
    const TemporaryVolume home(mac.home());
    if (!home.isMounted())
        GTEST_SKIP() << reasonNoVolume;
    const FileURL cache = makeCache("cache");
    JunkCleanerVM model(log);
    ASSERT_TRUE(home.makeReadOnly());
    clean(model);
    EXPECT_EQ(listed(model), QStringList{u"cache"_s});
    EXPECT_EQ(contentOf(cache), "content of cache");
    EXPECT_THAT(log.load(), IsEmpty());
}

TEST_F(FaultyHomeTest, aTrashOnAnotherVolumeLeavesTheJunkOnItsOwn)
{
    const TemporaryVolume home(mac.home());
    if (!home.isMounted())
        GTEST_SKIP() << reasonNoVolume;
    const TemporaryVolume share(mac.makeFolder("Users/mira/.local/share"));
    ASSERT_TRUE(share.isMounted());
    const FileURL cache = makeCache("cache");
    JunkCleanerVM model(log);
    clean(model);
    EXPECT_THAT(listed(model), IsEmpty());
    EXPECT_FALSE(exists(cache));
    EXPECT_FALSE(exists(trash)) << "nothing is copied from one volume to another";
    const FileURL own = trashOf(mac.home());
    EXPECT_EQ(contentOf(own.appendingNative("files/cache")), "content of cache");
    EXPECT_TRUE(
        TestMac::read(own.appendingNative("info/cache.trashinfo")).contains("Path=Library/Caches/cache\n"));
}

TEST_F(FaultyHomeTest, anotherUsersFolderStaysAndTheOthersAreMoved)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "only root can make another user's folder";
    giveHomeAway();
    const FileURL others = makeCache("others");
    const FileURL own = makeCache("own");
    ASSERT_EQ(::lchown(own.nativePath().constData(), UnprivilegedUser::nobody, UnprivilegedUser::nobody), 0);
    JunkCleanerVM model(log);
    model.scan();
    turnUntil([&model] { return !model.isScanning(); });
    model.selectAll();
    {
        const UnprivilegedUser plainUser;
        model.clean();
    }
    EXPECT_EQ(listed(model), QStringList{u"others"_s});
    EXPECT_EQ(contentOf(others), "content of others");
    EXPECT_FALSE(exists(own));
    EXPECT_THAT(inTrash("info"), ElementsAre("own.trashinfo"));
}

TEST_F(FaultyHomeTest, anApplicationOfTheSystemStaysAndItsLeftoversAreMoved)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "only root can make an application of another user";
    giveHomeAway();
    const FileURL inside = mac.writeFile("Applications/Editor.app/Contents/Info.plist", "p");
    const FileURL cache = makeCache("com.example.editor");
    ASSERT_EQ(::lchown(cache.nativePath().constData(), UnprivilegedUser::nobody, UnprivilegedUser::nobody),
              0);
    AppFacts facts;
    facts.name = u"Editor"_s;
    facts.bundleID = u"com.example.editor"_s;
    facts.url = mac.root().appendingNative("Applications/Editor.app");
    AppDetailVM model(AppInfo(std::move(facts)), log, {});
    model.loadLeftovers();
    turnUntil([&model] { return !model.isLoadingLeftovers(); });
    {
        const UnprivilegedUser plainUser;
        model.removeApp();
    }
    EXPECT_EQ(TestMac::read(inside), "p");
    EXPECT_FALSE(exists(cache));
    EXPECT_THAT(inTrash("info"), ElementsAre("com.example.editor.trashinfo"));
    ASSERT_EQ(log.load().size(), 1);
    EXPECT_EQ(log.load().first().detail, u"App + 1 leftover file moved to Trash"_s);
    EXPECT_EQ(log.load().first().itemCount, 2);
}

TEST_F(FaultyHomeTest, anUnchangeableItemStaysAndAFolderThatHoldsOneIsMovedWhole)
{
    const FileURL stuck = makeCache("stuck");
    const FileURL holder = makeCache("holder");
    const Unchangeable folder(stuck, FS_IMMUTABLE_FL);
    if (!folder.isSet())
        GTEST_SKIP() << testing::reasonUnchangeable;
    JunkCleanerVM model(log);
    {
        const Unchangeable child(holder.appendingNative("deep"), FS_IMMUTABLE_FL);
        clean(model);
        EXPECT_EQ(listed(model), QStringList{u"stuck"_s});
        EXPECT_EQ(contentOf(stuck), "content of stuck");
        EXPECT_FALSE(exists(holder));
        EXPECT_EQ(contentOf(trash.appendingNative("files/holder")), "content of holder");
        EXPECT_THAT(inTrash("info"), ElementsAre("holder.trashinfo"));
        // Moved back, because `child` makes its own path changeable again.
        ASSERT_EQ(::rename(trash.appendingNative("files/holder").nativePath().constData(),
                           holder.nativePath().constData()),
                  0);
    }
}

} // namespace
} // namespace keelbright
