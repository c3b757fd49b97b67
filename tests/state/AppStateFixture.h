#pragma once

#include "Keelbright/state/AppState.h"
#include "KeelbrightCore/platform/system/UserDefaults.h"
#include "KeelbrightCore/records/ActivityStore.h"
#include "KeelbrightCore/records/BackupConfigStore.h"
#include "tests/support/FakeFolderChooser.h"
#include "tests/support/Printing.h"
#include "tests/support/SampleReport.h"
#include "tests/support/StandardOutput.h"
#include "tests/support/StoredDefaults.h"
#include "tests/support/TestMac.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <cerrno>
#include <utility>

namespace keelbright::testing {

/// The test's machine, which remembers every configuration that was saved and can refuse a file.
class WatchedFileManager : public SandboxFileManager
{
public:
    using SandboxFileManager::SandboxFileManager;

    std::expected<void, FileError> writeAtomically(const FileURL& url, const QByteArray& data) override
    {
        const QString fileName = url.lastPathComponent();
        if (!refusedPrefix.isEmpty() && fileName.startsWith(refusedPrefix))
            return std::unexpected(FileError::fromCode(FileError::Operation::written, fileName, ENOSPC));
        if (fileName == QStringLiteral("config.json"))
            configs.append(data);
        return SandboxFileManager::writeAtomically(url, data);
    }

    QByteArrayList configs; ///< every content of `config.json`, in order
    QString refusedPrefix;  ///< files whose names begin with it find no space
};

/// A machine with all that a state is handed at start.
class AppStateFixture : public ::testing::Test
{
protected:
    /// Starts the application again with what the machine has kept.
    std::unique_ptr<AppState> makeState()
    {
        std::unique_ptr<AppState> state;
        output = standardOutputOf([&] { state = std::make_unique<AppState>(services()); });
        return state;
    }

    AppServices services() { return {configStore, activityStore, userDefaults, chooser, mac.clock()}; }

    [[nodiscard]] AppConfiguration savedConfiguration() { return configStore.load(); }

    /// The saved content after each save since the last call.
    [[nodiscard]] QList<AppConfiguration> takeSaves()
    {
        QList<AppConfiguration> saves;
        for (const QByteArray& data : std::exchange(fileManager.configs, {}))
            saves.append(AppConfiguration::fromJson(decodeJsonObject(data).value()).value());
        return saves;
    }

    [[nodiscard]] BackupDestination drive() const
    {
        return {QUuid(QStringLiteral("{11111111-2222-4333-8444-555555555555}")),
                mac.root().appending(QStringLiteral("Volumes/Anchor"))};
    }

    [[nodiscard]] BackupSource codeFolder() const
    {
        return {QUuid(QStringLiteral("{aaaaaaaa-bbbb-4ccc-8ddd-eeeeeeeeeeee}")),
                mac.home().appending(QStringLiteral("Code")), true};
    }

    [[nodiscard]] static QStringList enabledNames(const AppState& state)
    {
        QStringList names;
        for (const RecommendedFolder& folder : state.recommendedFolders()) {
            if (folder.isEnabled)
                names.append(folder.name);
        }
        return names;
    }

    /// Delivers what has been queued up to now.
    static void turnEventLoopOnce() { QCoreApplication::sendPostedEvents(); }

    int argc = 1;
    char name[5] = "test";
    char* argv[1] = {name};
    QCoreApplication application{argc, argv};
    TestMac mac;
    WatchedFileManager fileManager{mac.root()};
    FileManagerGuard guard{fileManager};
    BackupConfigStore configStore{fileManager.applicationSupportDirectory()};
    ActivityStore activityStore{fileManager.applicationSupportDirectory()};
    const FileURL defaultsFile = mac.home().appending(QStringLiteral(".config/Keelbright/UserDefaults.ini"));
    StoredDefaults storedDefaults{defaultsFile};
    UserDefaults userDefaults{std::make_unique<QSettings>(defaultsFile.path(), QSettings::IniFormat)};
    FakeFolderChooser chooser;
    QString output; ///< what the last start printed
};

} // namespace keelbright::testing
