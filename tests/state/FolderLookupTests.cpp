#include "Keelbright/state/FolderLookup.h"
#include "tests/support/BackgroundWork.h"
#include "tests/support/Printing.h"
#include "tests/support/TestMac.h"

#include <QCoreApplication>
#include <QFile>
#include <QMutex>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// Counts which places are looked up, and answers once its gate is open.
class SlowFileManager : public SandboxFileManager
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

class FolderLookupTest : public ::testing::Test
{
protected:
    ~FolderLookupTest() override
    {
        fileManager.gate.release();
        waitForBackgroundWork();
    }

    /// An item with an id of its own.
    struct Item
    {
        QUuid id;
        FileURL url;
    };

    [[nodiscard]] Item item(const QByteArray& path) const
    {
        return {QUuid::createUuid(), mac.root().appendingNative(path)};
    }

    [[nodiscard]] std::optional<bool> ask(const Item& item) { return lookup->isFolder(item.id, item.url); }

    void expectAnswer(const Item& item, bool isFolder)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return ask(item) == isFolder; }, 20'000))
            << item.url.nativePath().toStdString();
    }

    void waitForQuestions(qsizetype count)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return fileManager.asked().size() == count; }, 20'000));
    }

    int argc = 1;
    char program[5] = "test";
    char* argv[1] = {program};
    QCoreApplication application{argc, argv};
    TestMac mac;
    SlowFileManager fileManager{mac.root()};
    FileManagerGuard guard{fileManager};
    std::unique_ptr<FolderLookup> lookup = std::make_unique<FolderLookup>();
};

} // namespace

TEST_F(FolderLookupTest, knowsFoldersFromFilesAndFollowsLinks)
{
    fileManager.gate.release();
    mac.makeFolder("items/folder");
    mac.writeFile("items/file", "x");
    ASSERT_TRUE(QFile::link(mac.root().appending(u"items/folder"_s).path(),
                            mac.root().appending(u"items/link"_s).path()));
    expectAnswer(item("items/folder"), true);
    expectAnswer(item("items/file"), false);
    expectAnswer(item("items/link"), true);
    expectAnswer(item("items/gone"), false);
}

TEST_F(FolderLookupTest, asksForEachItemOnce)
{
    fileManager.gate.release();
    const Item asked = item("b");
    expectAnswer(asked, false);
    expectAnswer(asked, false);
    waitForBackgroundWork();
    EXPECT_EQ(fileManager.asked(), QStringList{u"b"_s});
}

TEST_F(FolderLookupTest, reportsWhenAnAnswerIsThere)
{
    const Item asked = item("a");
    const QSignalSpy found(lookup.get(), &FolderLookup::found);
    EXPECT_EQ(ask(asked), std::nullopt);
    waitForQuestions(1);
    EXPECT_EQ(found.count(), 0);
    fileManager.gate.release();
    EXPECT_TRUE(QTest::qWaitFor([&] { return found.count() == 1; }, 20'000));
    EXPECT_EQ(ask(asked), false);
}

TEST_F(FolderLookupTest, aPlaceThatDoesNotAnswerHoldsUpOneThreadOnly)
{
    const Item silent = item("silent");
    const Item other = item("other");
    EXPECT_EQ(ask(silent), std::nullopt);
    waitForQuestions(1);
    EXPECT_EQ(ask(other), std::nullopt);
    QCoreApplication::processEvents();
    EXPECT_EQ(fileManager.asked(), QStringList{u"silent"_s});
    fileManager.gate.release();
    expectAnswer(other, false);
    EXPECT_EQ(fileManager.asked(), (QStringList{u"silent"_s, u"other"_s}));
}

TEST_F(FolderLookupTest, asksAgainForWhatItForgot)
{
    const Item asked = item("place");
    EXPECT_EQ(ask(asked), std::nullopt);
    waitForQuestions(1);
    lookup->forget();
    mac.makeFolder("place");
    fileManager.gate.release();
    expectAnswer(asked, true);
    EXPECT_EQ(fileManager.asked(), (QStringList{u"place"_s, u"place"_s}));
}

TEST_F(FolderLookupTest, mayGoBeforeTheAnswer)
{
    EXPECT_EQ(ask(item("a")), std::nullopt);
    waitForQuestions(1);
    lookup.reset();
    fileManager.gate.release();
    waitForBackgroundWork();
    QCoreApplication::processEvents();
    EXPECT_EQ(fileManager.asked(), QStringList{u"a"_s});
}

} // namespace keelbright::testing
