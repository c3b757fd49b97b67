#include "KeelbrightCore/apps/LinuxApps.h"

#include "KeelbrightCore/apps/ContainedPackages.h"
#include "KeelbrightCore/apps/DpkgPackages.h"
#include "KeelbrightCore/apps/UsageRecords.h"
#include "KeelbrightCore/platform/files/FileManager.h"
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

/// The paths of the entries that may belong to a package of the system, also of those that are hidden.
QSet<QByteArray> entryPaths(const QList<DesktopApplication>& applications, const FileManager& files)
{
    QSet<QByteArray> paths;
    const auto add = [&](const FileURL& file) {
        if (!isUsersOwn(file, files))
            paths.insert(pathOnMachine(file, files));
    };
    for (const DesktopApplication& application : applications) {
        add(application.file);
        for (const HiddenEntry& hidden : application.hidden)
            add(hidden.file);
    }
    return paths;
}

/// The first entry that all users have; nothing where there are only the user's own.
std::optional<FileURL> entryOfAllUsers(const DesktopApplication& application, const FileManager& files)
{
    if (!isUsersOwn(application.file, files))
        return application.file;
    const auto found = std::ranges::find_if(
        application.hidden, [&](const HiddenEntry& hidden) { return !isUsersOwn(hidden.file, files); });
    return found == application.hidden.end() ? std::nullopt : std::optional(found->file);
}

/// An entry with what is known of its package.
struct Origin
{
    FileURL entry;
    PackageFacts package;
};

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
    [[nodiscard]] std::optional<PackageFacts> packageOf(const DesktopApplication& application) const
    {
        if (auto facts = ContainedPackages::flatpak(application, m_files))
            return facts;
        if (auto facts = ContainedPackages::snap(application, m_files))
            return facts;
        if (const PackageFacts* facts = m_dpkg.ownerOf(pathOnMachine(application.file, m_files)))
            return *facts;
        return std::nullopt;
    }

    /// A menu editor makes the user a copy of an entry, which hides that of the package.
    [[nodiscard]] Origin originOf(const DesktopApplication& application) const
    {
        if (const auto package = packageOf(application))
            return {.entry = application.file, .package = *package};
        for (const HiddenEntry& hidden : application.hidden) {
            if (const auto package = packageOf(hiddenApplication(application, hidden, m_files)))
                return {.entry = hidden.file, .package = *package};
        }
        const FileURL entry = entryOfAllUsers(application, m_files).value_or(application.file);
        return {.entry = entry, .package = {.installed = m_files.modificationDate(entry)}};
    }

    AppFacts factsOf(const DesktopApplication& application)
    {
        AppFacts facts{.name = application.entry.name.isEmpty() ? application.id : application.entry.name,
                       .bundleID = application.id};
        if (const AppImage* image = imageOf(application, m_images, m_files)) {
            m_imagesInMenu.append(image->file);
            takeImage(facts, *image);
        } else {
            takeOrigin(facts, originOf(application));
            facts.isForAllUsers = entryOfAllUsers(application, m_files).has_value();
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

    static void takeOrigin(AppFacts& facts, const Origin& origin)
    {
        facts.url = origin.entry;
        facts.version = origin.package.version;
        facts.sizeBytes = origin.package.sizeBytes;
        facts.dateAdded = origin.package.installed;
        facts.removalCommand = origin.package.removalCommand;
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
