#include "tests/state/AppStateFixture.h"
#include "tests/support/LoggedLines.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

using AppStateLoggingTest = AppStateFixture;

TEST_F(AppStateLoggingTest, isSilentUntilARuleTurnsItOn)
{
    const LoggedLines log{{}};
    const auto state = makeState();
    state->setSelectedScreen(Screen::settings);
    state->setSelectedDestination(drive());
    EXPECT_EQ(LoggedLines::take(), QStringList());
}

TEST_F(AppStateLoggingTest, saysWhatWasLoaded)
{
    AppConfiguration saved;
    saved.selectedDestination = drive();
    saved.customSources = {codeFolder()};
    saved.enabledRecommendedFolders = {u"Documents"_s};
    configStore.save(saved);
    const LoggedLines log{u"keelbright.state=true"_s};
    const auto state = makeState();
    EXPECT_EQ(LoggedLines::take().last(),
              u"keelbright.state: loaded: 2 folders, destination %1"_s.arg(drive().url.path()));
}

TEST_F(AppStateLoggingTest, saysThatItSaves)
{
    const auto state = makeState();
    const LoggedLines log{u"keelbright.state=true"_s};
    state->setCustomSources({codeFolder()});
    EXPECT_EQ(LoggedLines::take(), QStringList{u"keelbright.state: save: 4 folders, no destination"_s});
    state->setSelectedDestination(drive());
    EXPECT_EQ(LoggedLines::take(),
              QStringList{u"keelbright.state: save: 4 folders, destination %1"_s.arg(drive().url.path())});
}

TEST_F(AppStateLoggingTest, namesTheSelectedScreen)
{
    const auto state = makeState();
    const LoggedLines log{u"keelbright.state=true"_s};
    state->setSelectedScreen(Screen::junkCleaner);
    state->setSelectedScreen(std::nullopt);
    EXPECT_EQ(LoggedLines::take(), (QStringList{u"keelbright.state: screen: Junk Cleaner"_s,
                                                u"keelbright.state: screen: none"_s}));
}

} // namespace keelbright::testing
