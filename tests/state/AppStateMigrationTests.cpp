#include "tests/state/AppStateFixture.h"

#include <QJsonDocument>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

const QString destinationKey = u"kb.selectedDestination"_s;
const QString reportKey = u"kb.lastReport"_s;
const QString foldersKey = u"kb.enabledRecommended"_s;
const QString sourcesKey = u"kb.customSources"_s;
const QString announcement = u"Migrating from UserDefaults to BackupConfigStore...\n"_s;
const QStringList defaultNames{u"Desktop"_s, u"Documents"_s, u"Pictures"_s};

QByteArray textOf(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

class AppStateMigrationTest : public AppStateFixture
{
protected:
    void SetUp() override { storedDefaults.setData(destinationKey, textOf(drive().toJson())); }

    void setLegacySources(const QList<BackupSource>& sources)
    {
        QJsonArray array;
        for (const BackupSource& source : sources)
            array.append(source.toJson());
        storedDefaults.setData(sourcesKey, QJsonDocument(array).toJson(QJsonDocument::Compact));
    }
};

} // namespace

TEST_F(AppStateMigrationTest, everythingIsTakenOverAndSaved)
{
    storedDefaults.setData(reportKey, textOf(sampleReport().toJson()));
    storedDefaults.setStringArray(foldersKey, {u"Downloads"_s, u"Music"_s});
    setLegacySources({codeFolder()});
    const auto state = makeState();
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_EQ(state->customSources(), QList{codeFolder()});
    EXPECT_EQ(enabledNames(*state), (QStringList{u"Downloads"_s, u"Music"_s}));
    EXPECT_EQ(state->lastReport(), sampleReport());
    EXPECT_EQ(state->lastBackupTime(), sampleReport().completedAt);
    EXPECT_EQ(savedConfiguration(), (AppConfiguration{
                                        .selectedDestination = drive(),
                                        .customSources = {codeFolder()},
                                        .enabledRecommendedFolders = {u"Downloads"_s, u"Music"_s},
                                        .lastReport = sampleReport(),
                                        .lastBackupTime = sampleReport().completedAt,
                                    }));
}

TEST_F(AppStateMigrationTest, itIsPrintedAndTheDiagnosticsAreNot)
{
    std::ignore = makeState();
    EXPECT_EQ(output, announcement);
}

TEST_F(AppStateMigrationTest, onlyTheDestinationsKeyIsRemoved)
{
    storedDefaults.setData(reportKey, "r");
    storedDefaults.setStringArray(foldersKey, {u"Music"_s});
    storedDefaults.setData(sourcesKey, "s");
    std::ignore = makeState();
    EXPECT_FALSE(userDefaults.dataForKey(destinationKey).has_value());
    EXPECT_EQ(userDefaults.dataForKey(reportKey), QByteArray("r"));
    EXPECT_EQ(userDefaults.stringArrayForKey(foldersKey), QStringList{u"Music"_s});
    EXPECT_EQ(userDefaults.dataForKey(sourcesKey), QByteArray("s"));
}

TEST_F(AppStateMigrationTest, theNextStartReadsTheFileAndNoLegacyKey)
{
    storedDefaults.setStringArray(foldersKey, {u"Music"_s});
    std::ignore = makeState();
    storedDefaults.setStringArray(foldersKey, {u"Movies"_s});
    const auto state = makeState();
    EXPECT_TRUE(output.startsWith(u"--- Keel Bright Diagnostics ---\n"_s));
    EXPECT_EQ(enabledNames(*state), QStringList{u"Music"_s});
    EXPECT_EQ(state->selectedDestination(), drive());
}

TEST_F(AppStateMigrationTest, theDestinationAloneLeavesAllElseAtItsDefaults)
{
    const auto state = makeState();
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_EQ(enabledNames(*state), defaultNames);
    EXPECT_TRUE(state->customSources().isEmpty());
    EXPECT_FALSE(state->lastReport().has_value());
    EXPECT_FALSE(state->lastBackupTime().has_value());
}

TEST_F(AppStateMigrationTest, aDestinationThatCantBeDecodedIsNotTriedAgain)
{
    for (const QByteArray& data : {QByteArray("broken"), QByteArray("{}"), QByteArray("[]"), QByteArray()}) {
        SCOPED_TRACE(data.toStdString());
        storedDefaults.setData(destinationKey, data);
        const auto state = makeState();
        EXPECT_EQ(output, announcement);
        EXPECT_FALSE(state->selectedDestination().has_value());
        EXPECT_FALSE(userDefaults.dataForKey(destinationKey).has_value());
        std::ignore = makeState();
        EXPECT_TRUE(output.startsWith(u"--- Keel Bright Diagnostics ---\n"_s));
    }
}

TEST_F(AppStateMigrationTest, theRestIsTakenOverEvenWhereTheDestinationCantBeDecoded)
{
    storedDefaults.setData(destinationKey, "broken");
    setLegacySources({codeFolder()});
    const auto state = makeState();
    EXPECT_EQ(state->customSources(), QList{codeFolder()});
    EXPECT_EQ(savedConfiguration().customSources, QList{codeFolder()});
}

TEST_F(AppStateMigrationTest, aReportThatCantBeDecodedLeavesReportAndTimeAbsent)
{
    QJsonObject report = sampleReport().toJson();
    report.remove(u"errors"_s);
    for (const QByteArray& data : {QByteArray("broken"), textOf(report), QByteArray("[]")}) {
        SCOPED_TRACE(data.toStdString());
        storedDefaults.setData(destinationKey, textOf(drive().toJson()));
        configStore.save({});
        storedDefaults.setData(reportKey, data);
        const auto state = makeState();
        EXPECT_EQ(output, announcement);
        EXPECT_FALSE(state->lastReport().has_value());
        EXPECT_FALSE(state->lastBackupTime().has_value());
        EXPECT_EQ(state->selectedDestination(), drive());
    }
}

TEST_F(AppStateMigrationTest, sourcesThatCantBeDecodedAreLeftOut)
{
    storedDefaults.setData(sourcesKey, "[" + textOf(codeFolder().toJson()) + ",{}]");
    const auto state = makeState();
    EXPECT_TRUE(state->customSources().isEmpty());
    EXPECT_EQ(state->selectedDestination(), drive());
}

TEST_F(AppStateMigrationTest, anEmptyListOfFoldersDisablesAll)
{
    storedDefaults.setStringArray(foldersKey, {});
    EXPECT_EQ(enabledNames(*makeState()), QStringList());
    EXPECT_EQ(savedConfiguration().enabledRecommendedFolders, QStringList());
}

TEST_F(AppStateMigrationTest, aFileWithoutADestinationIsNotUsedAtAll)
{
    configStore.save({
        .selectedDestination = std::nullopt,
        .customSources = {codeFolder()},
        .enabledRecommendedFolders = {u"Movies"_s},
        .lastReport = sampleReport(),
        .lastBackupTime = sampleReport().completedAt,
    });
    const auto state = makeState();
    EXPECT_TRUE(state->customSources().isEmpty());
    EXPECT_EQ(enabledNames(*state), defaultNames);
    EXPECT_FALSE(state->lastReport().has_value());
    AppConfiguration expected;
    expected.selectedDestination = drive();
    expected.enabledRecommendedFolders = defaultNames;
    EXPECT_EQ(savedConfiguration(), expected);
}

TEST_F(AppStateMigrationTest, aDamagedFileIsMigratedOver)
{
    mac.writeFile("Users/mira/.local/share/Keelbright/config.json", "{}");
    const auto state = makeState();
    EXPECT_TRUE(output.startsWith(u"Failed to decode config: The value \"customSources\" is missing.\n"_s +
                                  announcement + u"Kept the config that could not be loaded: "_s +
                                  configStore.configURL().path() + u".unusable-"_s));
    EXPECT_EQ(output.count(u'\n'), 3);
    EXPECT_EQ(state->selectedDestination(), drive());
}

TEST_F(AppStateMigrationTest, aStartThatCanSaveNothingLosesNothing)
{
    storedDefaults.setStringArray(foldersKey, {u"Music"_s});
    setLegacySources({codeFolder()});
    fileManager.refusedPrefix = u"config.json"_s;
    for (int start = 0; start < 3; ++start) {
        const auto state = makeState();
        EXPECT_TRUE(output.startsWith(announcement));
        EXPECT_EQ(state->selectedDestination(), drive());
        EXPECT_FALSE(userDefaults.dataForKey(destinationKey).has_value()) << "the key is removed in any case";
    }
    fileManager.refusedPrefix.clear();
    const auto state = makeState();
    EXPECT_EQ(output, announcement);
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_EQ(savedConfiguration(), (AppConfiguration{
                                        .selectedDestination = drive(),
                                        .customSources = {codeFolder()},
                                        .enabledRecommendedFolders = {u"Music"_s},
                                        .lastReport = std::nullopt,
                                        .lastBackupTime = std::nullopt,
                                    }));
    std::ignore = makeState();
    EXPECT_TRUE(output.startsWith(u"--- Keel Bright Diagnostics ---\n"_s));
}

TEST_F(AppStateMigrationTest, aDestinationThatIsSavedLaterIsMigratedOnce)
{
    fileManager.refusedPrefix = u"config.json"_s;
    auto state = makeState();
    fileManager.refusedPrefix.clear();
    const BackupDestination other{QUuid::createUuid(), mac.root().appending(u"Volumes/Other"_s)};
    state->setSelectedDestination(other);
    state = makeState();
    EXPECT_TRUE(output.startsWith(u"--- Keel Bright Diagnostics ---\n"_s));
    EXPECT_EQ(state->selectedDestination(), other);
    // Not even where the file is lost afterwards.
    ASSERT_TRUE(fileManager.removeOwnFile(configStore.configURL()));
    EXPECT_FALSE(makeState()->selectedDestination().has_value());
}

TEST_F(AppStateMigrationTest, eachStepSavesAndTheLastSaveIsWhole)
{
    storedDefaults.setStringArray(foldersKey, {u"Music"_s});
    setLegacySources({codeFolder()});
    std::ignore = makeState();
    const QList<AppConfiguration> saves = takeSaves();
    ASSERT_EQ(saves.size(), 10);
    EXPECT_FALSE(saves.at(7).selectedDestination.has_value());
    EXPECT_EQ(saves.at(8).selectedDestination, drive());
    EXPECT_EQ(saves.at(9), saves.at(8));
}

} // namespace keelbright::testing
