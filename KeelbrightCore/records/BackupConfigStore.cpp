#include "KeelbrightCore/records/BackupConfigStore.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/Console.h"

namespace keelbright {

using namespace Qt::StringLiterals;

BackupConfigStore& BackupConfigStore::shared()
{
    static BackupConfigStore store(FileManager::defaultManager().applicationSupportDirectory());
    return store;
}

BackupConfigStore::BackupConfigStore(const FileURL& applicationSupport)
{
    const FileURL folder = applicationSupport.appending(u"Keelbright"_s);
    if (const auto created = FileManager::defaultManager().createDirectory(folder); !created)
        printLine(u"Failed to create config directory: "_s + created.error().localizedDescription());
    m_configURL = folder.appending(u"config.json"_s);
}

AppConfiguration BackupConfigStore::load() const
{
    const auto data = FileManager::defaultManager().contents(m_configURL);
    if (!data)
        return {};
    const auto json = decodeJsonObject(*data);
    auto configuration = json ? AppConfiguration::fromJson(*json) : std::unexpected(json.error());
    if (!configuration) {
        printLine(u"Failed to decode config: "_s + configuration.error().localizedDescription());
        return {};
    }
    return *std::move(configuration);
}

void BackupConfigStore::save(const AppConfiguration& configuration)
{
    const auto written = FileManager::defaultManager().writeAtomically(m_configURL, m_text.of(configuration));
    if (!written)
        printLine(u"Failed to encode or write config: "_s + written.error().localizedDescription());
}

} // namespace keelbright
