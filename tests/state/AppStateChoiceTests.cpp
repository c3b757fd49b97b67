#include "tests/state/AppStateFixture.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppStateChoiceTest : public AppStateFixture
{
protected:
    [[nodiscard]] FileURL inHome(const QString& folderName) const { return mac.home().appending(folderName); }
};

QList<FileURL> urlsOf(const QList<BackupSource>& sources)
{
    QList<FileURL> urls;
    for (const BackupSource& source : sources)
        urls.append(source.url);
    return urls;
}

} // namespace

TEST_F(AppStateChoiceTest, anAddedFolderIsEnabledHasANewIdAndIsSaved)
{
    const auto state = makeState();
    state->addCustomSource(inHome(u"Code"_s));
    ASSERT_EQ(state->customSources().size(), 1);
    const BackupSource added = state->customSources().first();
    EXPECT_EQ(added.url, inHome(u"Code"_s));
    EXPECT_TRUE(added.isEnabled);
    EXPECT_FALSE(added.id.isNull());
    EXPECT_EQ(savedConfiguration().customSources, QList{added});
}

TEST_F(AppStateChoiceTest, addingAFolderTwiceKeepsOneEntryAndSavesOnce)
{
    const auto state = makeState();
    std::ignore = takeSaves();
    state->addCustomSource(inHome(u"Code"_s));
    const QUuid id = state->customSources().first().id;
    state->addCustomSource(inHome(u"Code"_s));
    ASSERT_EQ(state->customSources().size(), 1);
    EXPECT_EQ(state->customSources().first().id, id);
    EXPECT_EQ(takeSaves().size(), 1);
}

TEST_F(AppStateChoiceTest, anEnabledRecommendedFolderIsNotAddedAgain)
{
    const auto state = makeState();
    state->addCustomSource(inHome(u"Desktop"_s));
    EXPECT_TRUE(state->customSources().isEmpty());
}

TEST_F(AppStateChoiceTest, aRecommendedFolderThatIsSwitchedOffCanBeAdded)
{
    const auto state = makeState();
    state->addCustomSource(inHome(u"Music"_s));
    EXPECT_EQ(urlsOf(state->customSources()), QList{inHome(u"Music"_s)});
}

TEST_F(AppStateChoiceTest, aDisabledCustomSourceIsNotAddedAgain)
{
    const auto state = makeState();
    BackupSource disabled = codeFolder();
    disabled.isEnabled = false;
    state->setCustomSources({disabled});
    state->addCustomSource(disabled.url);
    EXPECT_EQ(state->customSources(), QList{disabled});
}

TEST_F(AppStateChoiceTest, aFolderBelowAnotherSourceCanBeAdded)
{
    const auto state = makeState();
    state->addCustomSource(inHome(u"Desktop/Work"_s));
    EXPECT_EQ(urlsOf(state->customSources()), QList{inHome(u"Desktop/Work"_s)});
}

TEST_F(AppStateChoiceTest, removingASourceRemovesEveryEntryWithItsId)
{
    const auto state = makeState();
    BackupSource twin = codeFolder();
    twin.url = inHome(u"Twin"_s);
    const BackupSource other{QUuid::createUuid(), inHome(u"Other"_s), true};
    state->setCustomSources({codeFolder(), other, twin});
    BackupSource sameId = codeFolder();
    sameId.url = inHome(u"Somewhere else"_s);
    state->removeCustomSource(sameId);
    EXPECT_EQ(state->customSources(), QList{other});
    EXPECT_EQ(savedConfiguration().customSources, QList{other});
}

TEST_F(AppStateChoiceTest, removingByARecordWithAnotherIdRemovesNothing)
{
    const auto state = makeState();
    state->setCustomSources({codeFolder()});
    BackupSource otherId = codeFolder();
    otherId.id = QUuid::createUuid();
    state->removeCustomSource(otherId);
    EXPECT_EQ(state->customSources(), QList{codeFolder()});
}

TEST_F(AppStateChoiceTest, pickingFoldersAsksForSeveralAndAddsThemInOrder)
{
    const auto state = makeState();
    chooser.willChoose({inHome(u"B"_s), inHome(u"A"_s), inHome(u"B"_s), inHome(u"Desktop"_s)});
    state->pickCustomFolder();
    ASSERT_EQ(chooser.requests().size(), 1);
    const FolderChooserRequest request = chooser.requests().first();
    EXPECT_EQ(request.message, u"Select folders to protect."_s);
    EXPECT_EQ(request.prompt, u"Add Folder"_s);
    EXPECT_TRUE(request.allowsMultipleSelection);
    EXPECT_FALSE(request.canCreateDirectories);
    EXPECT_EQ(urlsOf(state->customSources()), (QList{inHome(u"B"_s), inHome(u"A"_s)}));
}

TEST_F(AppStateChoiceTest, pickingADestinationAsksForOneAndSavesIt)
{
    const auto state = makeState();
    chooser.willChoose({drive().url});
    state->pickDestination();
    ASSERT_EQ(chooser.requests().size(), 1);
    const FolderChooserRequest request = chooser.requests().first();
    EXPECT_EQ(request.message, u"Select a folder or external drive to store your backups."_s);
    EXPECT_EQ(request.prompt, u"Choose Backup Destination"_s);
    EXPECT_FALSE(request.allowsMultipleSelection);
    EXPECT_TRUE(request.canCreateDirectories);
    ASSERT_TRUE(state->selectedDestination().has_value());
    EXPECT_EQ(state->selectedDestination()->url, drive().url);
    EXPECT_FALSE(state->selectedDestination()->id.isNull());
    EXPECT_EQ(savedConfiguration().selectedDestination, state->selectedDestination());
}

TEST_F(AppStateChoiceTest, aDestinationIsNotCheckedWhenItIsChosen)
{
    const auto state = makeState();
    chooser.willChoose({inHome(u"Desktop/does not exist"_s)});
    state->pickDestination();
    EXPECT_EQ(state->selectedDestination()->url, inHome(u"Desktop/does not exist"_s));
    EXPECT_TRUE(state->alerts().isEmpty());
}

TEST_F(AppStateChoiceTest, eachChosenDestinationTakesANewId)
{
    const auto state = makeState();
    chooser.willChoose({drive().url});
    state->pickDestination();
    const QUuid first = state->selectedDestination()->id;
    chooser.willChoose({drive().url});
    state->pickDestination();
    EXPECT_NE(state->selectedDestination()->id, first);
}

TEST_F(AppStateChoiceTest, aDismissedChooserChangesNothing)
{
    const auto state = makeState();
    state->setSelectedDestination(drive());
    std::ignore = takeSaves();
    chooser.willBeDismissed();
    state->pickCustomFolder();
    chooser.willBeDismissed();
    state->pickDestination();
    EXPECT_TRUE(state->customSources().isEmpty());
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_TRUE(takeSaves().isEmpty());
}

TEST_F(AppStateChoiceTest, aConfirmedChooserWithoutAFolderChangesNothing)
{
    const auto state = makeState();
    state->setSelectedDestination(drive());
    chooser.willChoose({});
    state->pickDestination();
    chooser.willChoose({});
    state->pickCustomFolder();
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_TRUE(state->customSources().isEmpty());
}

TEST_F(AppStateChoiceTest, anAnswerThatComesLaterIsTaken)
{
    const auto state = makeState();
    chooser.willStayOpen();
    state->pickDestination();
    EXPECT_FALSE(state->selectedDestination().has_value());
    chooser.confirm({drive().url});
    ASSERT_TRUE(state->selectedDestination().has_value());
    EXPECT_EQ(state->selectedDestination()->url, drive().url);
}

TEST_F(AppStateChoiceTest, anAnswerAfterTheEndOfTheStateIsDropped)
{
    auto state = makeState();
    const AppConfiguration before = savedConfiguration();
    chooser.willStayOpen();
    state->pickCustomFolder();
    state.reset();
    chooser.confirm({inHome(u"Code"_s)});
    EXPECT_EQ(savedConfiguration(), before);
}

TEST_F(AppStateChoiceTest, resettingBringsTheDefaultFoldersBackAndKeepsTheRest)
{
    configStore.save({
        .selectedDestination = drive(),
        .customSources = {codeFolder()},
        .enabledRecommendedFolders = {u"Music"_s, u"Desktop"_s},
        .lastReport = sampleReport(),
        .lastBackupTime = sampleReport().completedAt,
    });
    const auto state = makeState();
    state->resetToDefaults();
    const QStringList defaults{u"Desktop"_s, u"Documents"_s, u"Pictures"_s};
    EXPECT_EQ(enabledNames(*state), defaults);
    EXPECT_TRUE(state->customSources().isEmpty());
    EXPECT_EQ(savedConfiguration(), (AppConfiguration{
                                        .selectedDestination = drive(),
                                        .customSources = {},
                                        .enabledRecommendedFolders = defaults,
                                        .lastReport = sampleReport(),
                                        .lastBackupTime = sampleReport().completedAt,
                                    }));
}

TEST_F(AppStateChoiceTest, everyToggleRewritesTheFile)
{
    const auto state = makeState();
    std::ignore = takeSaves();
    state->setRecommendedFolderEnabled(5, true);
    state->setRecommendedFolderEnabled(0, false);
    const QList<AppConfiguration> saves = takeSaves();
    ASSERT_EQ(saves.size(), 2);
    EXPECT_EQ(saves.at(0).enabledRecommendedFolders,
              (QStringList{u"Desktop"_s, u"Documents"_s, u"Pictures"_s, u"Music"_s}));
    EXPECT_EQ(saves.at(1).enabledRecommendedFolders,
              (QStringList{u"Documents"_s, u"Pictures"_s, u"Music"_s}));
}

TEST_F(AppStateChoiceTest, aSourceThatHasDisappearedStaysInTheState)
{
    mac.makeFolder("Users/mira/Code");
    {
        const auto state = makeState();
        state->addCustomSource(inHome(u"Code"_s));
    }
    ASSERT_TRUE(mac.fileManager().moveItem(inHome(u"Code"_s), inHome(u"Moved"_s)).has_value());
    EXPECT_EQ(urlsOf(makeState()->customSources()), QList{inHome(u"Code"_s)});
}

TEST_F(AppStateChoiceTest, aFailedSaveIsPrintedAndTheChoiceStands)
{
    const auto state = makeState();
    fileManager.refusedPrefix = u"config"_s;
    EXPECT_EQ(standardOutputOf([&] { state->setSelectedDestination(drive()); }),
              u"Failed to encode or write config: “config.json” could not be written: "
              "there is not enough space on the drive.\n"_s);
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_FALSE(savedConfiguration().selectedDestination.has_value());
}

} // namespace keelbright::testing
