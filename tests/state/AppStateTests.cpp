#include "KeelbrightCore/platform/text/UtcZone.h"
#include "tests/state/AppStateFixture.h"

#include <QSet>
#include <QSignalSpy>

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

class AppStateTest : public AppStateFixture
{};

QStringList described(const QList<RecommendedFolder>& folders)
{
    QStringList lines;
    for (const RecommendedFolder& folder : folders) {
        lines.append(QStringList{folder.name, folder.relativePath, folder.description, folder.icon,
                                 folder.isEnabled ? u"on"_s : u"off"_s}
                         .join(u'|'));
    }
    return lines;
}

QStringList namesOf(const QList<BackupSource>& sources)
{
    QStringList names;
    for (const BackupSource& source : sources)
        names.append(source.displayName());
    return names;
}

} // namespace

TEST_F(AppStateTest, startsWithItsDefaults)
{
    const auto state = makeState();
    EXPECT_EQ(state->selectedScreen(), Screen::dashboard);
    EXPECT_FALSE(state->isOnboardingCompleted());
    EXPECT_FALSE(state->engine().isRunning());
    EXPECT_TRUE(state->customSources().isEmpty());
    EXPECT_FALSE(state->selectedDestination().has_value());
    EXPECT_FALSE(state->lastReport().has_value());
    EXPECT_FALSE(state->lastBackupTime().has_value());
    EXPECT_TRUE(state->alerts().isEmpty());
}

TEST_F(AppStateTest, recommendsSevenFolders)
{
    EXPECT_EQ(
        described(makeState()->recommendedFolders()),
        (QStringList{
            u"Desktop|Desktop|Files saved directly to your desktop.|menubar.rectangle|on"_s,
            u"Documents|Documents|Your personal documents, PDFs, spreadsheets, and more.|doc.fill|on"_s,
            u"Pictures|Pictures|Images, screenshots, and photo exports.|photo.fill|on"_s,
            u"Downloads|Downloads|Items downloaded from the web or received via AirDrop.|arrow.down.circle.fill|off"_s,
            u"Movies|Movies|Video files and projects.|film.fill|off"_s,
            u"Music|Music|Music files and media projects.|music.note|off"_s,
            u"Photos Library|Pictures/Photos Library.photoslibrary|Your Photos library package. Can be large.|photo.stack.fill|off"_s,
        }));
}

TEST_F(AppStateTest, recommendedFoldersTakeNewIdsAtEachStart)
{
    QSet<QUuid> ids;
    for (int start = 0; start < 2; ++start) {
        const auto state = makeState();
        for (const RecommendedFolder& folder : state->recommendedFolders())
            ids.insert(folder.id);
    }
    EXPECT_EQ(ids.size(), 14);
    EXPECT_FALSE(ids.contains(QUuid()));
}

TEST_F(AppStateTest, enabledSourcesAreTheEnabledFoldersAndThenAllCustomOnes)
{
    const auto state = makeState();
    BackupSource disabled = codeFolder();
    disabled.isEnabled = false;
    state->setCustomSources({disabled, {QUuid::createUuid(), mac.home().appending(u"Zoo"_s), true}});
    state->setRecommendedFolderEnabled(0, false);
    const QList<BackupSource> sources = state->allEnabledSources();
    EXPECT_EQ(namesOf(sources), (QStringList{u"Documents"_s, u"Pictures"_s, u"Code"_s, u"Zoo"_s}));
    EXPECT_EQ(sources.first().url, mac.home().appending(u"Documents"_s));
    EXPECT_EQ(sources.at(2), disabled);
}

TEST_F(AppStateTest, eachReadOfTheSourcesGivesTheRecommendedFoldersOtherIds)
{
    const auto state = makeState();
    state->setCustomSources({codeFolder()});
    const QList<BackupSource> first = state->allEnabledSources();
    const QList<BackupSource> second = state->allEnabledSources();
    ASSERT_EQ(first.size(), 4);
    EXPECT_NE(first.at(0).id, second.at(0).id);
    EXPECT_EQ(first.at(0).url, second.at(0).url);
    EXPECT_EQ(first.at(3), second.at(3));
}

TEST_F(AppStateTest, previewShowsAtMostThreeSources)
{
    const auto state = makeState();
    EXPECT_EQ(namesOf(state->previewSources()), (QStringList{u"Desktop"_s, u"Documents"_s, u"Pictures"_s}));
    state->setCustomSources({codeFolder()});
    EXPECT_EQ(state->allEnabledSources().size(), 4);
    EXPECT_EQ(namesOf(state->previewSources()), (QStringList{u"Desktop"_s, u"Documents"_s, u"Pictures"_s}));
    state->setRecommendedFolderEnabled(0, false);
    state->setRecommendedFolderEnabled(1, false);
    EXPECT_EQ(namesOf(state->previewSources()), (QStringList{u"Pictures"_s, u"Code"_s}));
    state->setCustomSources({});
    state->setRecommendedFolderEnabled(2, false);
    EXPECT_TRUE(state->previewSources().isEmpty());
}

TEST_F(AppStateTest, eachSetIsAnnouncedByItsOwnSignalAndByTheCommonOne)
{
    const auto state = makeState();
    const QSignalSpy changed(state.get(), &AppState::changed);
    const auto expectOne = [&](const QSignalSpy& own, int total) {
        EXPECT_EQ(own.count(), 1);
        EXPECT_EQ(changed.count(), total);
    };

    const QSignalSpy screen(state.get(), &AppState::selectedScreenChanged);
    state->setSelectedScreen(std::nullopt);
    expectOne(screen, 1);
    const QSignalSpy onboarding(state.get(), &AppState::isOnboardingCompletedChanged);
    state->setIsOnboardingCompleted(true);
    expectOne(onboarding, 2);
    const QSignalSpy folders(state.get(), &AppState::recommendedFoldersChanged);
    state->setRecommendedFolders(state->recommendedFolders());
    expectOne(folders, 3);
    const QSignalSpy sources(state.get(), &AppState::customSourcesChanged);
    state->setCustomSources({codeFolder()});
    expectOne(sources, 4);
    const QSignalSpy destination(state.get(), &AppState::selectedDestinationChanged);
    state->setSelectedDestination(drive());
    expectOne(destination, 5);
    const QSignalSpy alerts(state.get(), &AppState::alertsChanged);
    state->setAlerts({});
    expectOne(alerts, 6);
    const QSignalSpy toggled(state.get(), &AppState::recommendedFoldersChanged);
    state->setRecommendedFolderEnabled(3, true);
    expectOne(toggled, 7);
    EXPECT_FALSE(state->selectedScreen().has_value());
    EXPECT_TRUE(state->isOnboardingCompleted());
}

TEST_F(AppStateTest, anIndexOutOfRangeChangesNothing)
{
    const auto state = makeState();
    std::ignore = takeSaves();
    const QSignalSpy changed(state.get(), &AppState::changed);
    state->setRecommendedFolderEnabled(-1, true);
    state->setRecommendedFolderEnabled(7, true);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_TRUE(takeSaves().isEmpty());
}

TEST_F(AppStateTest, theChangesOfTheEngineInOneTurnOfTheEventLoopAreAnnouncedOnceInTheNext)
{
    const auto state = makeState();
    const QSignalSpy changed(state.get(), &AppState::changed);
    state->engine().setTotalFilesEstimate(10);
    EXPECT_EQ(changed.count(), 0);
    turnEventLoopOnce();
    EXPECT_EQ(changed.count(), 1);
    for (int i = 0; i < 100; ++i)
        state->engine().incrementCopied(5, u"a.txt"_s);
    EXPECT_EQ(changed.count(), 1);
    turnEventLoopOnce();
    EXPECT_EQ(changed.count(), 2);
    turnEventLoopOnce();
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(AppStateTest, whatIsOnItsWayDiesWithTheState)
{
    auto state = makeState();
    state->engine().setIsRunning(true);
    state->engine().setLastReport(sampleReport());
    state->engine().setIsRunning(false);
    state.reset();
    turnEventLoopOnce();
    EXPECT_TRUE(activityStore.load().isEmpty());
    EXPECT_FALSE(savedConfiguration().lastReport.has_value());
}

TEST_F(AppStateTest, givesTheTimeOfItsClock)
{
    const auto state = makeState();
    EXPECT_EQ(state->now(), QDateTime(QDate(2026, 3, 2), QTime(9, 5, 7), utcZone));
}

} // namespace keelbright::testing
