// What lies beside `config.json` so that no save loses what the file held.

#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/Printing.h"
#include "tests/support/StandardOutput.h"
#include "tests/support/TestMac.h"

#include <algorithm>
#include <cerrno>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

namespace keelbright::testing {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;

namespace {

constexpr auto trailingComma = R"({"customSources": [], "enabledRecommendedFolders": ["Music"],})";

/// A machine on which second names and writes can fail.
class FaultyFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    std::expected<void, FileError> linkItem(const FileURL& item, const FileURL& secondName) override
    {
        if (linkError != 0)
            return failure(FileError::Operation::copied, item, linkError);
        return SandboxFileManager::linkItem(item, secondName);
    }

    std::expected<void, FileError> moveItem(const FileURL& source, const FileURL& target) override
    {
        if (moveError != 0)
            return failure(FileError::Operation::moved, source, moveError);
        return SandboxFileManager::moveItem(source, target);
    }

    std::expected<void, FileError> writeAtomically(const FileURL& url, const QByteArray& data) override
    {
        if (writeError != 0)
            return failure(FileError::Operation::written, url, writeError);
        return SandboxFileManager::writeAtomically(url, data);
    }

    int linkError = 0;
    int moveError = 0;
    int writeError = 0;
};

class KeptConfigurationTest : public ::testing::Test
{
protected:
    void writeFile(const QByteArray& text, const QByteArray& name = "config.json") const
    {
        mac.writeFile("Users/mira/.local/share/Keelbright/" + name, text);
    }

    [[nodiscard]] FileURL file(const QByteArray& name = "config.json") const
    {
        return mac.home().appendingNative(".local/share/Keelbright/" + name);
    }

    /// The sorted names in the folder of the settings.
    [[nodiscard]] QByteArrayList names()
    {
        QByteArrayList names;
        const auto entries = files.contentsOfDirectory(file().deletingLastPathComponent(), {});
        for (const DirectoryEntry& entry : entries.value_or(QList<DirectoryEntry>()))
            names.append(entry.url.nativeLastPathComponent());
        std::ranges::sort(names);
        return names;
    }

    /// The last of the names: an unusable file's copy comes behind the file.
    [[nodiscard]] FileURL keptFile() { return file(names().value(names().size() - 1)); }

    /// A start after the last one, with what that has left.
    [[nodiscard]] AppConfiguration loadedByNextStart() const
    {
        return BackupConfigStore(mac.home().appendingNative(".local/share")).load();
    }

    TestMac mac;
    FaultyFileManager files{mac.root()};
    FileManagerGuard guard{files};
    BackupConfigStore store{files.applicationSupportDirectory()};
    const AppConfiguration whole{
        .selectedDestination =
            BackupDestination{QUuid::createUuid(), FileURL::fromPath(u"/Volumes/Anchor"_s)},
        .customSources = {{QUuid::createUuid(), FileURL::fromPath(u"/Users/mira/Code"_s), true}},
        .enabledRecommendedFolders = {u"Desktop"_s},
        .lastReport = std::nullopt,
        .lastBackupTime = std::nullopt,
    };
    const AppConfiguration half{.selectedDestination = std::nullopt,
                                .customSources = {},
                                .enabledRecommendedFolders = {u"Music"_s},
                                .lastReport = std::nullopt,
                                .lastBackupTime = std::nullopt};
};

} // namespace

TEST_F(KeptConfigurationTest, aRewriteThatIsCutShortLosesNothing)
{
    store.save(whole);
    EXPECT_EQ(store.load(), whole);
    store.beginRewrite();
    store.save(half);
    EXPECT_THAT(names(), ElementsAre("config.json", "config.json.before-start"));
    BackupConfigStore next(files.applicationSupportDirectory());
    EXPECT_EQ(next.load(), whole);
    next.beginRewrite();
    next.save(half);
    EXPECT_EQ(loadedByNextStart(), whole) << "the copy is not replaced by half of the settings";
    next.save(whole);
    next.endRewrite();
    EXPECT_THAT(names(), ElementsAre("config.json"));
    EXPECT_EQ(loadedByNextStart(), whole);
}

TEST_F(KeptConfigurationTest, aRewriteWhoseLastSaveFailsLeavesTheFileAsItWas)
{
    store.save(whole);
    const QByteArray before = TestMac::read(file());
    EXPECT_EQ(store.load(), whole);
    store.beginRewrite();
    store.save(half);
    files.writeError = ENOSPC;
    EXPECT_EQ(standardOutputOf([&] { store.save(whole); }),
              u"Failed to encode or write config: “config.json” could not be written: "
              "there is not enough space on the drive.\n"_s);
    store.endRewrite();
    EXPECT_EQ(TestMac::read(file()), before);
    EXPECT_THAT(names(), ElementsAre("config.json"));
}

TEST_F(KeptConfigurationTest, withoutARoomForACopyTheStepsAreNotWritten)
{
    store.save(whole);
    const QByteArray before = TestMac::read(file());
    EXPECT_EQ(store.load(), whole);
    store.beginRewrite();
    files.linkError = ENOSPC;
    files.writeError = ENOSPC;
    EXPECT_EQ(standardOutputOf([&] { store.save(half); }),
              u"Failed to encode or write config: “config.json” could not be written: "
              "there is not enough space on the drive.\n"_s);
    store.endRewrite();
    EXPECT_EQ(TestMac::read(file()), before);
    EXPECT_THAT(names(), ElementsAre("config.json"));
    files.writeError = 0;
    store.save(half);
    EXPECT_EQ(loadedByNextStart(), half) << "a change by the user needs no copy";
}

TEST_F(KeptConfigurationTest, aDriveWithoutSecondNamesGetsAWrittenCopy)
{
    store.save(whole);
    const QByteArray before = TestMac::read(file());
    files.linkError = EPERM;
    EXPECT_EQ(store.load(), whole);
    store.beginRewrite();
    store.save(half);
    EXPECT_EQ(TestMac::read(file("config.json.before-start")), before);
    EXPECT_EQ(loadedByNextStart(), whole);
}

TEST_F(KeptConfigurationTest, aFileThatGotItsDestinationIsCompleteWhateverTheCopySays)
{
    store.save(half);
    writeFile(TestMac::read(file()), "config.json.before-start");
    BackupConfigStore other(mac.makeFolder("other"));
    other.save(whole);
    writeFile(TestMac::read(other.configURL()));
    EXPECT_EQ(loadedByNextStart(), whole);
}

TEST_F(KeptConfigurationTest, aSaveOutsideOfARewriteEndsTheTimeOfTheCopy)
{
    store.save(half);
    writeFile(TestMac::read(file()), "config.json.before-start");
    EXPECT_EQ(store.load(), half);
    store.save(whole);
    EXPECT_THAT(names(), ElementsAre("config.json"));
}

TEST_F(KeptConfigurationTest, aCopyThatCannotBeLoadedIsKeptAndTheFileCounts)
{
    store.save(half);
    writeFile(trailingComma, "config.json.before-start");
    EXPECT_EQ(store.load(), half);
    store.beginRewrite();
    const QString output = standardOutputOf([&] { store.save(half); });
    store.endRewrite();
    EXPECT_EQ(output, u"Kept the config that could not be loaded: "_s + keptFile().path() + u'\n');
    EXPECT_EQ(TestMac::read(keptFile()), trailingComma);
    EXPECT_EQ(names().size(), 2);
}

TEST_F(KeptConfigurationTest, aFileThatCannotBeDecodedIsKeptUnderANameWithTheDate)
{
    writeFile(trailingComma);
    const QString loading = standardOutputOf([&] { EXPECT_EQ(store.load(), AppConfiguration()); });
    EXPECT_EQ(loading.count(u'\n'), 1);
    EXPECT_THAT(names(), ElementsAre("config.json")) << "nothing is done before it would be replaced";
    const QString saving = standardOutputOf([&] {
        store.save(half);
        store.save(whole);
    });
    ASSERT_EQ(names().size(), 2);
    EXPECT_THAT(names().last().toStdString(),
                ::testing::MatchesRegex("config.json.unusable-[0-9]{8}-[0-9]{6}"));
    EXPECT_EQ(saving, u"Kept the config that could not be loaded: "_s + keptFile().path() + u'\n');
    EXPECT_EQ(TestMac::read(keptFile()), trailingComma);
    EXPECT_EQ(loadedByNextStart(), whole);
}

TEST_F(KeptConfigurationTest, aFileThatCannotBeReadIsKeptAndNothingIsPrintedWhenItIsLoaded)
{
    writeFile("secret");
    ASSERT_EQ(::truncate(file().nativePath().constData(), 40'000'000'000), 0);
    EXPECT_EQ(standardOutputOf([&] { EXPECT_EQ(store.load(), AppConfiguration()); }), QString());
    const QString saving = standardOutputOf([&] { store.save(whole); });
    EXPECT_EQ(saving, u"Kept the config that could not be loaded: "_s + keptFile().path() + u'\n');
    EXPECT_EQ(loadedByNextStart(), whole);
    struct stat status = {};
    ASSERT_EQ(::stat(keptFile().nativePath().constData(), &status), 0);
    EXPECT_EQ(status.st_size, 40'000'000'000);
}

TEST_F(KeptConfigurationTest, theLastThreeUnusableFilesStay)
{
    for (const char* date : {"20240101-120000", "20250101-120000", "20260101-120000", "20990101-120000"})
        writeFile(date, QByteArray("config.json.unusable-") + date);
    writeFile(trailingComma);
    (void)standardOutputOf([&] {
        (void)store.load();
        store.save(half);
    });
    ASSERT_EQ(names().size(), 4);
    EXPECT_EQ(names().at(1), "config.json.unusable-20260101-120000");
    EXPECT_EQ(TestMac::read(file(names().at(2))), trailingComma) << "the newest one, whatever the clock says";
    EXPECT_EQ(names().at(3), "config.json.unusable-20990101-120000");
}

TEST_F(KeptConfigurationTest, unusableFilesOfTheSameSecondAllStay)
{
    (void)standardOutputOf([&] {
        for (const char* text : {"{1", "{2", "{3"}) {
            writeFile(text);
            (void)store.load();
            store.save(half);
        }
    });
    QByteArrayList texts;
    for (const QByteArray& name : names().sliced(1))
        texts.append(TestMac::read(file(name)));
    std::ranges::sort(texts);
    EXPECT_THAT(texts, ElementsAre("{1", "{2", "{3"));
}

TEST_F(KeptConfigurationTest, anUnusableFileIsMovedWhereTheDriveKnowsNoSecondNames)
{
    files.linkError = EPERM;
    writeFile(trailingComma);
    (void)standardOutputOf([&] {
        (void)store.load();
        store.save(half);
    });
    EXPECT_EQ(TestMac::read(keptFile()), trailingComma);
    EXPECT_EQ(loadedByNextStart(), half);
}

TEST_F(KeptConfigurationTest, anUnusableFileThatCannotBeKeptIsNotReplaced)
{
    files.linkError = EIO;
    files.moveError = EIO;
    writeFile(trailingComma);
    (void)standardOutputOf([&] { (void)store.load(); });
    EXPECT_EQ(standardOutputOf([&] { store.save(half); }),
              u"Failed to encode or write config: “config.json” could not be written: "
              "the drive reported an error.\n"_s);
    EXPECT_EQ(TestMac::read(file()), trailingComma);
    files.linkError = 0;
    (void)standardOutputOf([&] { store.save(half); });
    EXPECT_EQ(TestMac::read(keptFile()), trailingComma);
    EXPECT_EQ(loadedByNextStart(), half);
}

TEST_F(KeptConfigurationTest, ofALinkTheFileBehindItIsReplacedAndKeepsItsMode)
{
    const FileURL behind = mac.writeFile("Users/mira/dotfiles/settings", trailingComma);
    ASSERT_EQ(::chmod(behind.nativePath().constData(), 0640), 0);
    ASSERT_EQ(::symlink("../../../dotfiles/settings", file().nativePath().constData()), 0);
    BackupConfigStore linked(files.applicationSupportDirectory());
    (void)standardOutputOf([&] {
        (void)linked.load();
        linked.save(whole);
    });
    struct stat status = {};
    ASSERT_EQ(::lstat(file().nativePath().constData(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
    ASSERT_EQ(::lstat(behind.nativePath().constData(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0640U);
    EXPECT_EQ(loadedByNextStart(), whole);
    const auto kept = files.contentsOfDirectory(behind.deletingLastPathComponent(), {});
    EXPECT_EQ(kept->size(), 2) << "what could not be loaded is kept beside the file itself";
}

} // namespace keelbright::testing
