// Starts that end before they have written everything.

#include "tests/state/AppStateFixture.h"

namespace keelbright::testing {

using namespace Qt::StringLiterals;

namespace {

/// The test's machine, on which nothing changes any more after so many saves, as if the program had been
/// killed then.
class StoppedFileManager : public SandboxFileManager
{
public:
    StoppedFileManager(const FileURL& root, int saves)
        : SandboxFileManager(root)
        , m_savesLeft(saves)
    {}

    std::expected<void, FileError> writeAtomically(const FileURL& url, const QByteArray& data) override
    {
        if (m_savesLeft == 0)
            return stopped(url);
        --m_savesLeft;
        return SandboxFileManager::writeAtomically(url, data);
    }

    std::expected<void, FileError> linkItem(const FileURL& item, const FileURL& secondName) override
    {
        return m_savesLeft == 0 ? stopped(item) : SandboxFileManager::linkItem(item, secondName);
    }

    std::expected<void, FileError> moveItem(const FileURL& source, const FileURL& target) override
    {
        return m_savesLeft == 0 ? stopped(source) : SandboxFileManager::moveItem(source, target);
    }

    std::expected<void, FileError> removeOwnFile(const FileURL& file) override
    {
        return m_savesLeft == 0 ? stopped(file) : SandboxFileManager::removeOwnFile(file);
    }

private:
    static std::expected<void, FileError> stopped(const FileURL& url)
    {
        return failure(FileError::Operation::written, url, EIO);
    }

    int m_savesLeft;
};

class AppStateInterruptedLoadTest : public AppStateFixture, public ::testing::WithParamInterface<int>
{};

} // namespace

TEST_P(AppStateInterruptedLoadTest, theNextStartHasAllSettings)
{
    const AppConfiguration saved{
        .selectedDestination = drive(),
        .customSources = {codeFolder()},
        .enabledRecommendedFolders = {u"Documents"_s, u"Music"_s},
        .lastReport = sampleReport(),
        .lastBackupTime = sampleReport().completedAt,
    };
    configStore.save(saved);
    {
        StoppedFileManager stopped(mac.root(), GetParam());
        const FileManagerGuard inPlace(stopped);
        BackupConfigStore store(stopped.applicationSupportDirectory());
        AppServices cutShort{store, activityStore, userDefaults, chooser, mac.clock()};
        (void)standardOutputOf([&] { const AppState state(cutShort); });
    }
    const auto state = makeState();
    EXPECT_EQ(state->selectedDestination(), drive());
    EXPECT_EQ(state->customSources(), QList{codeFolder()});
    EXPECT_EQ(enabledNames(*state), saved.enabledRecommendedFolders);
    EXPECT_EQ(state->lastReport(), sampleReport());
    EXPECT_EQ(savedConfiguration(), saved);
}

/// A load writes nine times: for each of the seven folders, for the sources, for the destination.
INSTANTIATE_TEST_SUITE_P(AfterSaves, AppStateInterruptedLoadTest, ::testing::Range(0, 10));

} // namespace keelbright::testing
