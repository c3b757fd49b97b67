#include "tests/state/AppStateFixture.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppStateLoadingTest : public AppStateFixture
{
protected:
    /// The diagnostics of a machine on which only these folders exist.
    [[nodiscard]] QString diagnostics(const QStringList& existing = {}) const
    {
        const QList<QStringList> folders{
            {u"Desktop"_s, u"Desktop"_s},
            {u"Documents"_s, u"Documents"_s},
            {u"Pictures"_s, u"Pictures"_s},
            {u"Downloads"_s, u"Downloads"_s},
            {u"Movies"_s, u"Movies"_s},
            {u"Music"_s, u"Music"_s},
            {u"Photos Library"_s, u"Pictures/Photos Library.photoslibrary"_s},
        };
        QString text = u"--- Keel Bright Diagnostics ---\n"_s;
        for (const QStringList& folder : folders) {
            text += u"Folder: "_s + folder.at(0) + u", Path: "_s + mac.home().path() + u'/' + folder.at(1) +
                    u", Exists: "_s + (existing.contains(folder.at(0)) ? u"true"_s : u"false"_s) + u'\n';
        }
        return text + u"-------------------------------\n"_s;
    }
};

const QStringList defaultNames{u"Desktop"_s, u"Documents"_s, u"Pictures"_s};

} // namespace

TEST_F(AppStateLoadingTest, theFirstStartPrintsTheDiagnosticsOfAllFolders)
{
    std::ignore = makeState();
    EXPECT_EQ(output, diagnostics());
}

TEST_F(AppStateLoadingTest, theDiagnosticsShowWhichFoldersExist)
{
    mac.makeFolder("Users/mira/Desktop");
    mac.makeFolder("Users/mira/Pictures/Photos Library.photoslibrary");
    std::ignore = makeState();
    EXPECT_EQ(output, diagnostics({u"Desktop"_s, u"Pictures"_s, u"Photos Library"_s}));
}

TEST_F(AppStateLoadingTest, theFirstStartWritesTheConfigurationTwice)
{
    const auto state = makeState();
    AppConfiguration expected;
    expected.enabledRecommendedFolders = defaultNames;
    EXPECT_EQ(takeSaves(), (QList<AppConfiguration>{expected, expected}));
    EXPECT_EQ(enabledNames(*state), defaultNames);
}

TEST_F(AppStateLoadingTest, whatWasSavedComesBack)
{
    const AppConfiguration saved{
        .selectedDestination = drive(),
        .customSources = {codeFolder()},
        .enabledRecommendedFolders = {u"Documents"_s, u"Photos Library"_s},
        .lastReport = sampleReport(),
        .lastBackupTime = sampleReport().completedAt,
    };
    configStore.save(saved);
    const auto state = makeState();
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_EQ(state->customSources(), QList{codeFolder()});
    EXPECT_EQ(enabledNames(*state), saved.enabledRecommendedFolders);
    EXPECT_EQ(state->lastReport(), sampleReport());
    EXPECT_EQ(state->lastBackupTime(), sampleReport().completedAt);
    EXPECT_EQ(savedConfiguration(), saved);
}

TEST_F(AppStateLoadingTest, theTimeOfTheLastBackupIsTheSavedOneAndNotTheReports)
{
    AppConfiguration saved;
    saved.lastReport = sampleReport();
    configStore.save(saved);
    const auto state = makeState();
    EXPECT_EQ(state->lastReport(), sampleReport());
    EXPECT_FALSE(state->lastBackupTime().has_value());
}

TEST_F(AppStateLoadingTest, aRestartShowsTheOnboardingAgainAndKeepsAllElse)
{
    {
        const auto state = makeState();
        state->setIsOnboardingCompleted(true);
        state->setSelectedScreen(Screen::settings);
        state->setSelectedDestination(drive());
        state->setCustomSources({codeFolder()});
        state->setRecommendedFolderEnabled(5, true);
    }
    const auto state = makeState();
    EXPECT_FALSE(state->isOnboardingCompleted());
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_EQ(state->customSources(), QList{codeFolder()});
    EXPECT_EQ(enabledNames(*state), (defaultNames + QStringList{u"Music"_s}));
}

TEST_F(AppStateLoadingTest, theFileIsRewrittenOncePerFolderAndOncePerListAndIsWholeAtTheEnd)
{
    const AppConfiguration saved{
        .selectedDestination = drive(),
        .customSources = {codeFolder()},
        .enabledRecommendedFolders = {u"Music"_s},
        .lastReport = sampleReport(),
        .lastBackupTime = sampleReport().completedAt,
    };
    configStore.save(saved);
    std::ignore = takeSaves();
    std::ignore = makeState();
    const QList<AppConfiguration> saves = takeSaves();
    ASSERT_EQ(saves.size(), 9);
    // Folder by folder: the defaults go off, Music comes on.
    EXPECT_EQ(saves.at(0).enabledRecommendedFolders, (QStringList{u"Documents"_s, u"Pictures"_s}));
    EXPECT_EQ(saves.at(2).enabledRecommendedFolders, QStringList());
    EXPECT_EQ(saves.at(6).enabledRecommendedFolders, QStringList{u"Music"_s});
    EXPECT_TRUE(saves.at(6).customSources.isEmpty());
    EXPECT_EQ(saves.at(6).lastReport, sampleReport());
    // Then the sources, and the destination last.
    EXPECT_EQ(saves.at(7).customSources, QList{codeFolder()});
    EXPECT_FALSE(saves.at(7).selectedDestination.has_value());
    EXPECT_EQ(saves.at(8), saved);
}

TEST_F(AppStateLoadingTest, anEmptyListOfEnabledFoldersBringsTheDefaultsBack)
{
    {
        const auto state = makeState();
        for (qsizetype index = 0; index < state->recommendedFolders().size(); ++index)
            state->setRecommendedFolderEnabled(index, false);
    }
    EXPECT_EQ(savedConfiguration().enabledRecommendedFolders, QStringList());
    EXPECT_EQ(enabledNames(*makeState()), defaultNames);
    EXPECT_EQ(savedConfiguration().enabledRecommendedFolders, defaultNames);
}

TEST_F(AppStateLoadingTest, namesCompareExactlyAndAnUnknownOneIsDroppedByTheNextSave)
{
    AppConfiguration saved;
    saved.enabledRecommendedFolders = {u"desktop"_s, u"Movies"_s, u"Attic"_s};
    configStore.save(saved);
    EXPECT_EQ(enabledNames(*makeState()), QStringList{u"Movies"_s});
    EXPECT_EQ(savedConfiguration().enabledRecommendedFolders, QStringList{u"Movies"_s});
}

TEST_F(AppStateLoadingTest, onlyUnknownNamesDisableAllFolders)
{
    AppConfiguration saved;
    saved.enabledRecommendedFolders = {u"Attic"_s};
    configStore.save(saved);
    EXPECT_EQ(enabledNames(*makeState()), QStringList());
}

TEST_F(AppStateLoadingTest, aDestinationInTheFileIgnoresTheLegacyKeys)
{
    AppConfiguration saved;
    saved.selectedDestination = drive();
    configStore.save(saved);
    storedDefaults.setData(u"kb.selectedDestination"_s, "{}");
    storedDefaults.setStringArray(u"kb.enabledRecommended"_s, {u"Music"_s});
    const auto state = makeState();
    EXPECT_EQ(output, diagnostics());
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_EQ(enabledNames(*state), defaultNames);
    EXPECT_EQ(userDefaults.dataForKey(u"kb.selectedDestination"_s), QByteArray("{}"));
}

TEST_F(AppStateLoadingTest, otherLegacyKeysAloneAreNoMigration)
{
    storedDefaults.setStringArray(u"kb.enabledRecommended"_s, {u"Music"_s});
    storedDefaults.setData(u"kb.lastReport"_s, "{}");
    EXPECT_EQ(enabledNames(*makeState()), defaultNames);
    EXPECT_EQ(output, diagnostics());
}

TEST_F(AppStateLoadingTest, aDamagedFileStartsOverWithTheDefaults)
{
    mac.writeFile("Users/mira/.local/share/Keelbright/config.json", "{\"customSources\": [");
    const auto state = makeState();
    EXPECT_TRUE(output.startsWith(
        u"Failed to decode config: The JSON text is not valid at byte 19: unterminated array.\n"
        "Kept the config that could not be loaded: "_s +
        configStore.configURL().path() + u".unusable-"_s));
    EXPECT_TRUE(output.endsWith(u'\n' + diagnostics()));
    EXPECT_EQ(output.count(u'\n'), 2 + diagnostics().count(u'\n'));
    EXPECT_EQ(enabledNames(*state), defaultNames);
    EXPECT_FALSE(state->selectedDestination().has_value());
    EXPECT_EQ(savedConfiguration().enabledRecommendedFolders, defaultNames);
}

} // namespace keelbright::testing
