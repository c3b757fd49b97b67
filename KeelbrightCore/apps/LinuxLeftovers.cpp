#include "KeelbrightCore/apps/LinuxLeftovers.h"

#include "KeelbrightCore/apps/UsageRecords.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/files/PlaceOnVolume.h"
#include "KeelbrightCore/platform/system/AppImages.h"

#include <algorithm>
#include <functional>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

using Kind = AppLeftover::Kind;

/// Folders of the desktop itself, which every application uses, whatever a program is called. Two of them
/// are called after a program, but serve what no menu shows too: GNOME keeps everyone's calendars, contacts
/// and accounts in "evolution", and the terminal inside KDE's programs has its profiles in "konsole".
bool isOfTheDesktop(const QString& name)
{
    static const QStringList names{u"Trash"_s,           u"applications"_s, u"autostart"_s,  u"backgrounds"_s,
                                   u"bash-completion"_s, u"dbus-1"_s,       u"dconf"_s,      u"desktop"_s,
                                   u"environment.d"_s,   u"evolution"_s,    u"flatpak"_s,    u"fontconfig"_s,
                                   u"fonts"_s,           u"gtk-2.0"_s,      u"gtk-3.0"_s,    u"gtk-4.0"_s,
                                   u"icons"_s,           u"keyrings"_s,     u"konsole"_s,    u"man"_s,
                                   u"menus"_s,           u"mime"_s,         u"pulse"_s,      u"sounds"_s,
                                   u"systemd"_s,         u"themes"_s,       u"thumbnails"_s, u"wallpapers"_s};
    return names.contains(name);
}

QStringList namesOf(const DesktopApplication& application)
{
    QStringList names{application.id, ownProgramOf(application.entry), application.entry.flatpak};
    names.removeAll(QString());
    names.removeDuplicates();
    return names;
}

/// One scan for one application.
class Search
{
public:
    Search(QString id, const FileManager& files, const Cancellation& cancellation)
        : m_id(std::move(id))
        , m_files(files)
        , m_cancellation(cancellation)
    {}

    QList<AppLeftover> run()
    {
        const auto application = std::ranges::find(m_installed, m_id, &DesktopApplication::id);
        if (application != m_installed.end()) {
            searchFor(ownNames(*application));
            appendEntryOfImage(*application);
        }
        std::ranges::stable_sort(m_found, std::greater(), &AppLeftover::sizeBytes);
        return std::move(m_found);
    }

private:
    /// Without those that another application has too, also one whose entry this one's hides.
    [[nodiscard]] QStringList ownNames(const DesktopApplication& application) const
    {
        QStringList names = namesOf(application);
        const auto leaveTo = [&names](const DesktopApplication& other) {
            for (const QString& shared : namesOf(other))
                names.removeAll(shared);
        };
        for (const DesktopApplication& other : m_installed) {
            if (other.id != application.id)
                leaveTo(other);
        }
        for (const HiddenEntry& hidden : application.hidden) {
            const DesktopApplication other = hiddenApplication(application, hidden, m_files);
            if (ownProgramOf(other.entry) != ownProgramOf(application.entry))
                leaveTo(other);
        }
        names.removeIf(
            [](const QString& name) { return isOfTheDesktop(name) || !isFileName(name.toUtf8()); });
        return names;
    }

    void searchFor(const QStringList& names)
    {
        const LinuxAppFolders folders = MachinePlaces(m_files).linuxAppFolders();
        searchIn(folders.configuration, names, Kind::preferences);
        searchIn(folders.data, names, Kind::support);
        searchIn(folders.state, names, Kind::savedState);
        searchIn(folders.caches, names, Kind::cache);
        searchIn(folders.flatpaks, names, Kind::container);
    }

    void searchIn(const FileURL& base, const QStringList& names, Kind kind)
    {
        // Where the environment names the home as such a folder, its entries are the user's own.
        if (isAtOrBelow(m_files.homeDirectory(), base))
            return;
        for (const QString& name : names) {
            const FileURL folder = base.appending(name);
            if (m_files.fileExists(folder).isDirectory)
                append(folder, kind);
        }
    }

    /// Without its AppImage the entry would lead nowhere.
    void appendEntryOfImage(const DesktopApplication& application)
    {
        const QList<AppImage> images = appImages(m_files);
        if (imageOf(application, images, m_files) != nullptr && isUsersOwn(application.file, m_files))
            append(application.file, Kind::other);
    }

    void append(const FileURL& url, Kind kind)
    {
        if (!m_cancellation.isCancelled())
            m_found.append(measuredLeftover(url, kind, m_files));
    }

    const QString m_id;
    const FileManager& m_files;
    const Cancellation& m_cancellation;
    const QList<DesktopApplication> m_installed = desktopApplications(m_files, Menu::ofAnyDesktop);
    QList<AppLeftover> m_found;
};

} // namespace

QList<AppLeftover> LinuxLeftovers::scan(const QString& id, const FileManager& files,
                                        const Cancellation& cancellation)
{
    return Search(id, files, cancellation).run();
}

} // namespace keelbright
