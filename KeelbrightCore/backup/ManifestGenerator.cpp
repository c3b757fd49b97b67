#include "KeelbrightCore/backup/ManifestGenerator.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/system/AppImages.h"
#include "KeelbrightCore/platform/system/Host.h"
#include "KeelbrightCore/platform/system/ProgramVersion.h"

#include <algorithm>

namespace keelbright::ManifestGenerator {

using namespace Qt::StringLiterals;

namespace {

/// The names in the desktop's menu and those of the AppImages that it does not run, each once.
QStringList applicationsOfDesktop(const FileManager& fileManager)
{
    QStringList names;
    QList<AppImage> images = appImages(fileManager);
    for (const DesktopApplication& application : desktopApplications(fileManager)) {
        names.append(application.entry.name.isEmpty() ? application.id : application.entry.name);
        if (const AppImage* image = imageOf(application, images, fileManager))
            images.removeAt(image - images.constData());
    }
    for (const AppImage& image : images)
        names.append(image.name);
    std::sort(names.begin(), names.end());
    names.removeDuplicates();
    return names;
}

QStringList installedApps(const FileManager& fileManager)
{
    if (!MachinePlaces(fileManager).isMac())
        return applicationsOfDesktop(fileManager);
    const auto entries = fileManager.contentsOfDirectory(MachinePlaces(fileManager).sharedBundleFolder(), {});
    if (!entries)
        return {};
    QStringList names;
    for (const DirectoryEntry& entry : *entries) {
        QString name = entry.url.lastPathComponent();
        if (name.endsWith(".app"_L1))
            names.append(name.remove(".app"_L1));
    }
    std::sort(names.begin(), names.end());
    return names;
}

QMap<QString, bool> dotfilesPresent(const FileManager& fileManager)
{
    QMap<QString, bool> present;
    for (const QString& name : {u".zshrc"_s, u".bash_profile"_s, u".gitconfig"_s, u".ssh"_s})
        present.insert(name, fileManager.fileExists(fileManager.homeDirectory().appending(name)).exists);
    return present;
}

} // namespace

BackupManifest generate(const BackupJob& job)
{
    const FileManager& fileManager = FileManager::defaultManager();
    return {
        .appVersion = programVersion() + u"-mvp"_s,
        // Not "MyMac" as in the folder's name: a reader would take that for the machine's real name.
        .deviceName = Host::localizedName().value_or(u"Unknown Mac"_s),
        .macOSVersion = Host::operatingSystemVersionString(),
        .backupDate = job.startedAt,
        .sourceFolders = job.sourcePaths(),
        .destinationPath = job.destination.url.path(),
        .installedApps = installedApps(fileManager),
        .shellInfo = Host::environment("SHELL").value_or(u"unknown"_s),
        .dotfilesPresent = dotfilesPresent(fileManager),
        .notes =
            u"Application binaries are NOT backed up. This manifest only captures metadata and file presence."_s,
    };
}

} // namespace keelbright::ManifestGenerator
