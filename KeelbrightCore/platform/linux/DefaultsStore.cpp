#include "KeelbrightCore/platform/system/DefaultsStore.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/XdgFolders.h"

namespace keelbright {

std::unique_ptr<QSettings> DefaultsStore::ofTheUser()
{
    const FileURL file = XdgFolders::configuration(FileManager::defaultManager())
                             .appending(QStringLiteral("Keelbright/UserDefaults.ini"));
    return std::make_unique<QSettings>(file.path(), QSettings::IniFormat);
}

QString DefaultsStore::storedKey(const QString& key)
{
    return key;
}

} // namespace keelbright
