#include "KeelbrightCore/platform/text/UtcZone.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/Printing.h"
#include "tests/support/SampleReport.h"
#include "tests/support/StandardOutput.h"
#include "tests/support/TestMac.h"
#include "tests/support/WorkTimer.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class BackupConfigStoreTest : public ::testing::Test
{
protected:
    void writeConfig(const QByteArray& text) const
    {
        mac.writeFile("Users/mira/.local/share/Keelbright/config.json", text);
    }

    /// What a load prints; checks that it gives the empty configuration.
    [[nodiscard]] QString outputOfFailedLoad()
    {
        return standardOutputOf([&] { EXPECT_EQ(store.load(), AppConfiguration()); });
    }

    TestMac mac;
    BackupConfigStore store{mac.fileManager().applicationSupportDirectory()};
};

AppConfiguration sampleConfiguration()
{
    return {
        .selectedDestination = BackupDestination{QUuid(u"{0a4ba8c1-57b2-4e0f-9c43-5e5f2a9d6b10}"_s),
                                                 FileURL::fromPath(u"/Volumes/Anchor"_s)},
        .customSources = {{QUuid(u"{7d1f0c52-8a3e-4f7b-b1d9-3c2e1f0a9b84}"_s),
                           FileURL::fromPath(u"/Users/mira/Code"_s), false}},
        .enabledRecommendedFolders = {u"Desktop"_s},
        .lastReport = std::nullopt,
        .lastBackupTime = QDateTime(QDate(2026, 3, 1), QTime(9, 5, 42), utcZone),
    };
}

} // namespace

TEST_F(BackupConfigStoreTest, theFileLiesInAFolderOfItsOwnInApplicationSupport)
{
    EXPECT_EQ(store.configURL(),
              mac.fileManager().applicationSupportDirectory().appending(u"Keelbright/config.json"_s));
    EXPECT_TRUE(mac.fileManager().fileExists(store.configURL().deletingLastPathComponent()).isDirectory);
}

TEST_F(BackupConfigStoreTest, theSharedStoreIsOneInTheUsersApplicationSupport)
{
    EXPECT_EQ(&BackupConfigStore::shared(), &BackupConfigStore::shared());
    EXPECT_EQ(BackupConfigStore::shared().configURL(), store.configURL());
}

TEST_F(BackupConfigStoreTest, theFirstStartGivesAnEmptyConfigurationAndPrintsNothing)
{
    EXPECT_EQ(outputOfFailedLoad(), QString());
    EXPECT_FALSE(mac.fileManager().fileExists(store.configURL()).exists);
}

TEST_F(BackupConfigStoreTest, whatWasSavedIsLoadedEqual)
{
    AppConfiguration configuration = sampleConfiguration();
    configuration.lastReport = sampleReport();
    EXPECT_EQ(standardOutputOf([&] { store.save(configuration); }), QString());
    EXPECT_EQ(store.load(), configuration);
}

TEST_F(BackupConfigStoreTest, datesAreCutToWholeSeconds)
{
    AppConfiguration configuration;
    configuration.lastBackupTime = QDateTime(QDate(2026, 3, 1), QTime(9, 5, 42, 999), utcZone);
    store.save(configuration);
    EXPECT_EQ(store.load().lastBackupTime, QDateTime(QDate(2026, 3, 1), QTime(9, 5, 42), utcZone));
}

TEST_F(BackupConfigStoreTest, theFileIsIndentedAndLeavesOutWhatIsAbsent)
{
    store.save(sampleConfiguration());
    const QByteArray expected = R"({
    "customSources": [
        {
            "id": "7D1F0C52-8A3E-4F7B-B1D9-3C2E1F0A9B84",
            "isEnabled": false,
            "url": "file:///Users/mira/Code"
        }
    ],
    "enabledRecommendedFolders": [
        "Desktop"
    ],
    "lastBackupTime": "2026-03-01T09:05:42Z",
    "selectedDestination": {
        "id": "0A4BA8C1-57B2-4E0F-9C43-5E5F2A9D6B10",
        "url": "file:///Volumes/Anchor"
    }
}
)";
    EXPECT_EQ(TestMac::read(store.configURL()), expected);
}

TEST_F(BackupConfigStoreTest, aSettingBesideAnUnchangedReportCostsAtMostTenMilliseconds)
{
    AppConfiguration configuration = sampleConfiguration();
    configuration.lastReport = sampleReport();
    for (int i = 0; i < 100'000; ++i)
        configuration.lastReport->errors.append(
            u"Skip IMG_%1.heic: “IMG_%1.heic” could not be copied."_s.arg(i));
    store.save(configuration);
    qint64 minimum = std::numeric_limits<qint64>::max();
    // The machine may be busy with other things for a moment.
    for (int round = 0; round < 5; ++round) {
        configuration.enabledRecommendedFolders.append(u"Music"_s);
        const WorkTimer timer;
        store.save(configuration);
        minimum = std::min(minimum, timer.nanoseconds());
    }
    EXPECT_LE(minimum, 10'000'000);
    EXPECT_EQ(store.load(), configuration);
}

TEST_F(BackupConfigStoreTest, keysAreReadInAnyOrder)
{
    writeConfig(R"({"enabledRecommendedFolders":["Music"],"unknown":{},"customSources":[]})");
    EXPECT_EQ(store.load().enabledRecommendedFolders, QStringList{u"Music"_s});
}

TEST_F(BackupConfigStoreTest, anEmptyObjectIsInvalid)
{
    writeConfig("{}");
    EXPECT_EQ(outputOfFailedLoad(), u"Failed to decode config: The value \"customSources\" is missing.\n"_s);
}

TEST_F(BackupConfigStoreTest, aWrongShapeIsInvalid)
{
    writeConfig(R"([])");
    EXPECT_EQ(outputOfFailedLoad(), u"Failed to decode config: The JSON text is not an object.\n"_s);
    writeConfig(R"({"customSources":{},"enabledRecommendedFolders":[]})");
    EXPECT_EQ(outputOfFailedLoad(),
              u"Failed to decode config: The value \"customSources\" is not a list.\n"_s);
    writeConfig(R"({"customSources":[],"enabledRecommendedFolders":[],"lastReport":{"id":"x"}})");
    EXPECT_EQ(outputOfFailedLoad(),
              u"Failed to decode config: The value \"lastReport.id\" is not a UUID.\n"_s);
}

TEST_F(BackupConfigStoreTest, anEmptyFileIsInvalid)
{
    writeConfig("");
    EXPECT_EQ(outputOfFailedLoad(),
              u"Failed to decode config: The JSON text is not valid at byte 0: illegal value.\n"_s);
}

TEST_F(BackupConfigStoreTest, aTruncatedFileIsInvalidStaysAndIsReplacedByTheNextSave)
{
    store.save(sampleConfiguration());
    const QByteArray truncated = TestMac::read(store.configURL()).chopped(20);
    writeConfig(truncated);
    EXPECT_EQ(outputOfFailedLoad(),
              u"Failed to decode config: The JSON text is not valid at byte %1: unterminated string.\n"_s.arg(
                  truncated.size() + 1));
    EXPECT_EQ(TestMac::read(store.configURL()), truncated);
    store.save({});
    EXPECT_EQ(standardOutputOf([&] { EXPECT_EQ(store.load(), AppConfiguration()); }), QString());
}

TEST_F(BackupConfigStoreTest, tenThousandNestedListsAreInvalidAndNoCrash)
{
    writeConfig("{\"customSources\":" + QByteArray(10'000, '[') + QByteArray(10'000, ']') +
                ",\"enabledRecommendedFolders\":[]}");
    EXPECT_EQ(
        outputOfFailedLoad(),
        u"Failed to decode config: The JSON text is not valid at byte 1041: too deeply nested document.\n"_s);
}

TEST_F(BackupConfigStoreTest, aFolderInItsPlaceReadsAsEmptyPrintsNothingAndCantBeSaved)
{
    mac.makeFolder("Users/mira/.local/share/Keelbright/config.json");
    EXPECT_EQ(outputOfFailedLoad(), QString());
    EXPECT_EQ(
        standardOutputOf([&] { store.save(sampleConfiguration()); }),
        u"Failed to encode or write config: “config.json” could not be written: a folder stands in its place.\n"_s);
    EXPECT_TRUE(mac.fileManager().fileExists(store.configURL()).isDirectory);
}

TEST_F(BackupConfigStoreTest, aFolderThatCantBeCreatedIsPrintedAndTheStoreGoesOn)
{
    const FileURL blocked = mac.writeFile("blocked", "");
    std::optional<BackupConfigStore> poor;
    EXPECT_EQ(standardOutputOf([&] { poor.emplace(blocked); }),
              u"Failed to create config directory: “Keelbright” could not be created: "
              "a file stands in the place of a folder.\n"_s);
    EXPECT_EQ(standardOutputOf([&] { EXPECT_EQ(poor->load(), AppConfiguration()); }), QString());
    EXPECT_EQ(standardOutputOf([&] { poor->save({}); }),
              u"Failed to encode or write config: “config.json” could not be written: "
              "a file stands in the place of a folder.\n"_s);
}

TEST_F(BackupConfigStoreTest, aFailedSaveLeavesTheOldFile)
{
    store.save(sampleConfiguration());

    class FullDrive : public SandboxFileManager
    {
    public:
        using SandboxFileManager::SandboxFileManager;

        std::expected<void, FileError> writeAtomically(const FileURL& url, const QByteArray&) override
        {
            return std::unexpected(
                FileError::fromCode(FileError::Operation::written, url.lastPathComponent(), ENOSPC));
        }
    };

    FullDrive fullDrive(mac.root());
    const FileManagerGuard guard(fullDrive);
    EXPECT_EQ(standardOutputOf([&] { store.save({}); }),
              u"Failed to encode or write config: “config.json” could not be written: "
              "there is not enough space on the drive.\n"_s);
    EXPECT_EQ(store.load(), sampleConfiguration());
}

} // namespace keelbright::testing
