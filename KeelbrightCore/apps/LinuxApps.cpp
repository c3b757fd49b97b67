#include "KeelbrightCore/apps/LinuxApps.h"

#include "KeelbrightCore/apps/ContainedPackages.h"
#include "KeelbrightCore/apps/DpkgPackages.h"
#include "KeelbrightCore/apps/UsageRecords.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/PlaceOnVolume.h"
#include "KeelbrightCore/platform/system/AppImages.h"

#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// The path without the folder that a test's machine lies in.
QByteArray pathOnMachine(const FileURL& file, const FileManager& files)
{
    const QByteArray root = files.systemLocation(u"/"_s).nativePath();
    return root == "/" ? file.nativePath() : file.nativePath().sliced(root.size());
}

/// The paths of the entries that may belong to a package of the system.
QSet<QByteArray> entryPaths(const QList<DesktopApplication>& applications, const FileManager& files)
{
    QSet<QByteArray> paths;
    for (const DesktopApplication& application : applications) {
        if (!isAtOrBelow(application.file, files.homeDirectory()))
            paths.insert(pathOnMachine(application.file, files));
    }
    return paths;
}

/// One listing of everything.
class Listing
{
public:
    explicit Listing(const FileManager& files)
        : m_files(files)
    {}

    QList<AppFacts> run()
    {
        QList<AppFacts> all;
        for (const DesktopApplication& application : m_applications)
            all.append(factsOf(application));
        for (const AppImage& image : m_images) {
            if (!m_imagesInMenu.contains(image.file))
                all.append(factsOf(image));
        }
        return all;
    }

private:
    [[nodiscard]] bool isUsersOwn(const DesktopApplication& application) const
    {
        return application.dataFolder == m_files.applicationSupportDirectory() ||
               isAtOrBelow(application.file, m_files.homeDirectory());
    }

    [[nodiscard]] PackageFacts packageOf(const DesktopApplication& application) const
    {
        if (const auto facts = ContainedPackages::flatpak(application, m_files))
            return *facts;
        if (const auto facts = ContainedPackages::snap(application, m_files))
            return *facts;
        if (const PackageFacts* facts = m_dpkg.ownerOf(pathOnMachine(application.file, m_files)))
            return *facts;
        return {.installed = m_files.modificationDate(application.file)};
    }

    AppFacts factsOf(const DesktopApplication& application)
    {
        AppFacts facts{.name = application.entry.name.isEmpty() ? application.id : application.entry.name,
                       .bundleID = application.id,
                       .url = application.file};
        if (const AppImage* image = imageOf(application, m_images, m_files)) {
            m_imagesInMenu.append(image->file);
            takeImage(facts, *image);
        } else {
            takePackage(facts, packageOf(application));
            facts.isForAllUsers = !isUsersOwn(application);
        }
        facts.themeIcon = application.entry.icon;
        const std::optional<AppUse> use = m_usage.of(application);
        facts.hasUsageRecord = use.has_value();
        if (use) {
            facts.useCount = use->count;
            facts.lastUsedDate = use->last;
        }
        return facts;
    }

    AppFacts factsOf(const AppImage& image) const
    {
        AppFacts facts{.name = image.name, .bundleID = image.file.lastPathComponent()};
        takeImage(facts, image);
        facts.hasUsageRecord = false;
        return facts;
    }

    void takeImage(AppFacts& facts, const AppImage& image) const
    {
        facts.url = image.file;
        facts.version = image.version;
        facts.sizeBytes = m_files.fileSize(image.file);
        facts.dateAdded = m_files.modificationDate(image.file);
    }

    static void takePackage(AppFacts& facts, const PackageFacts& package)
    {
        facts.version = package.version;
        facts.sizeBytes = package.sizeBytes;
        facts.dateAdded = package.installed;
        facts.removalCommand = package.removalCommand;
    }

    const FileManager& m_files;
    const QList<DesktopApplication> m_applications = desktopApplications(m_files);
    const QList<AppImage> m_images = appImages(m_files);
    const DpkgPackages m_dpkg{entryPaths(m_applications, m_files), m_files};
    const UsageRecords m_usage{m_files};
    QList<FileURL> m_imagesInMenu; ///< which are listed by their entries
};

} // namespace

QList<AppFacts> LinuxApps::installed(const FileManager& files)
{
    return Listing(files).run();
}

} // namespace keelbright
