#include "Keelbright/screens/junk/JunkCategoryModel.h"
#include "Keelbright/screens/junk/JunkItemModel.h"
#include "tests/screens/shared/ScreenTestCase.h"

#include <QFile>
#include <QMutex>
#include <QSemaphore>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// Counts which places are looked up, and may not answer for as long as it is told.
class SlowLookups : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    FileExistence fileExists(const FileURL& url) const override
    {
        {
            const QMutexLocker lock(&m_mutex);
            m_asked.append(url.lastPathComponent());
        }
        gate.acquire();
        gate.release();
        return SandboxFileManager::fileExists(url);
    }

    [[nodiscard]] QStringList asked() const
    {
        const QMutexLocker lock(&m_mutex);
        return m_asked;
    }

    mutable QSemaphore gate; ///< open once it was released

private:
    mutable QMutex m_mutex;
    mutable QStringList m_asked;
};

class JunkModelTests : public ScreenTestCase
{
protected:
    [[nodiscard]] JunkItem itemAt(const QByteArray& path) const
    {
        return {.url = mac.root().appendingNative(path), .sizeBytes = 1};
    }

    [[nodiscard]] static QStringList symbols(const JunkItemModel& model)
    {
        QStringList keys;
        for (int row = 0; row < model.rowCount(); ++row)
            keys.append(model.rowAt(row).symbol);
        return keys;
    }

    /// When every answer is in.
    [[nodiscard]] static QStringList settledSymbols(const JunkItemModel& model)
    {
        (void)symbols(model);
        turnFrame();
        waitForBackgroundWork();
        turnFrame();
        return symbols(model);
    }

    JunkCleanerVM vm{activityStore};
};

} // namespace

TEST_F(JunkModelTests, eachKindOfJunkHasItsColor)
{
    EXPECT_EQ(junkCategoryColor(u"userCaches"_s), Role::accent);
    EXPECT_EQ(junkCategoryColor(u"userLogs"_s), Role::mint);
    EXPECT_EQ(junkCategoryColor(u"xcode"_s), Role::azure);
    EXPECT_EQ(junkCategoryColor(u"iosBackups"_s), Role::purple);
    EXPECT_EQ(junkCategoryColor(u"browserCache"_s), Role::teal);
    EXPECT_EQ(junkCategoryColor(u"trash"_s), Role::orange);
    EXPECT_EQ(junkCategoryColor(u"somethingElse"_s), Role::secondaryText);
}

TEST_F(JunkModelTests, anItemsIconSaysWhatItIs)
{
    mac.makeFolder("items/caches.log");
    for (const QByteArray name : {"a.plist", "b.log", "c.crash", "d.LOG", "e"})
        mac.writeFile("items/" + name, "x");
    ASSERT_TRUE(QFile::link(mac.root().appending(u"items/caches.log"_s).path(),
                            mac.root().appending(u"items/link"_s).path()));
    JunkItemModel model(vm);
    model.setItems({itemAt("items/caches.log"), itemAt("items/a.plist"), itemAt("items/b.log"),
                    itemAt("items/c.crash"), itemAt("items/d.LOG"), itemAt("items/e"), itemAt("items/link"),
                    itemAt("items/gone")});
    EXPECT_EQ(settledSymbols(model),
              (QStringList{u"folder.fill"_s, u"doc.badge.gearshape"_s, u"doc.text.fill"_s, u"doc.text.fill"_s,
                           u"doc.fill"_s, u"doc.fill"_s, u"folder.fill"_s, u"doc.fill"_s}));
}

TEST_F(JunkModelTests, onlyWhatIsShownIsLookedUpAndOnlyOnce)
{
    SlowLookups lookups(mac.root());
    lookups.gate.release();
    const FileManagerGuard guard(lookups);
    JunkItemModel model(vm);
    model.setItems({itemAt("a"), itemAt("b"), itemAt("c")});
    turnFrame();
    waitForBackgroundWork();
    EXPECT_TRUE(lookups.asked().isEmpty());
    for (int i = 0; i < 3; ++i) {
        (void)model.rowAt(1);
        turnFrame();
        waitForBackgroundWork();
        turnFrame();
    }
    EXPECT_EQ(lookups.asked(), QStringList(u"b"_s));
}

TEST_F(JunkModelTests, aPlaceThatDoesNotAnswerHoldsNothingUp)
{
    mac.writeFile("file", "x");
    SlowLookups lookups(mac.root());
    const FileManagerGuard guard(lookups);
    JunkItemModel model(vm);
    model.setItems({itemAt("file"), itemAt("other")});
    EXPECT_EQ(model.rowAt(0).symbol, u"folder.fill"_s);
    turnUntil([&] { return !lookups.asked().isEmpty(); });
    // More questions wait for the first, and take no further thread.
    EXPECT_EQ(model.rowAt(1).symbol, u"folder.fill"_s);
    turnFrame();
    EXPECT_EQ(lookups.asked(), QStringList(u"file"_s));
    lookups.gate.release();
    turnUntil([&] { return model.rowAt(1).symbol == u"doc.fill"_s; });
    EXPECT_EQ(model.rowAt(0).symbol, u"doc.fill"_s);
    EXPECT_EQ(lookups.asked(), (QStringList{u"file"_s, u"other"_s}));
}

TEST_F(JunkModelTests, theListMayGoBeforeTheAnswer)
{
    SlowLookups lookups(mac.root());
    const FileManagerGuard guard(lookups);
    auto model = std::make_unique<JunkItemModel>(vm);
    model->setItems({itemAt("a")});
    (void)model->rowAt(0);
    turnUntil([&] { return !lookups.asked().isEmpty(); });
    model.reset();
    lookups.gate.release();
    waitForBackgroundWork();
    turnFrame();
    EXPECT_EQ(lookups.asked(), QStringList(u"a"_s));
}

} // namespace keelbright::testing
