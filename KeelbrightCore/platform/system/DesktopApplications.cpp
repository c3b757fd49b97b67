#include "KeelbrightCore/platform/system/DesktopApplications.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"
#include "KeelbrightCore/platform/files/PlaceOnVolume.h"

#include <QHash>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

std::optional<DesktopEntry> readEntry(const FileURL& file, const QStringList& languages,
                                      const FileManager& files)
{
    constexpr qint64 maximumBytes = qint64{1024} * 1024; // far above any entry
    const auto data = files.contents(file, maximumBytes);
    return data ? DesktopEntry::fromData(*data, languages) : std::nullopt;
}

/// Whether there is such a program, by its path or in the folders of programs.
bool isThere(const QString& program, const FileManager& files)
{
    if (program.startsWith(u'/'))
        return files.isExecutable(files.systemLocation(program));
    const QStringList folders = qEnvironmentVariable("PATH").split(u':', Qt::SkipEmptyParts);
    return std::ranges::any_of(folders, [&](const QString& folder) {
        return files.isExecutable(files.systemLocation(folder).appending(program));
    });
}

/// One look through all data folders.
class Search
{
public:
    Search(const FileManager& files, Menu menu)
        : m_files(files)
        , m_menu(menu)
    {}

    QList<DesktopApplication> run()
    {
        for (const FileURL& folder : MachinePlaces(m_files).dataFolders())
            searchFolder(folder);
        return std::move(m_found);
    }

private:
    void searchFolder(const FileURL& dataFolder)
    {
        const FileURL root = dataFolder.appending(u"applications"_s);
        auto walk = m_files.enumerator(root, DirectoryEnumerator::Option::followsRootLink);
        if (!walk)
            return;
        while ((*walk)->next()) {
            if ((*walk)->type() == EntryType::directory || pathExtensionOf((*walk)->name()) != "desktop")
                continue;
            const FileURL file = (*walk)->url();
            // The id of an entry in a folder has the folder's name before it.
            QByteArray id = file.nativePath().sliced(root.nativePath().size() + 1).replace('/', '-');
            id.chop(QByteArrayView(".desktop").size());
            take({.id = QString::fromUtf8(id), .file = file, .dataFolder = dataFolder, .entry = {}});
        }
    }

    void take(DesktopApplication application)
    {
        if (const auto first = m_places.constFind(application.id); first != m_places.constEnd()) {
            if (*first >= 0)
                m_found[*first].hidden.append(
                    {.file = application.file, .dataFolder = application.dataFolder});
            return;
        }
        const auto entry = readEntry(application.file, m_languages, m_files);
        const bool isListed = entry && isShown(*entry);
        m_places.insert(application.id, isListed ? m_found.size() : -1);
        if (!isListed)
            return;
        application.entry = *entry;
        m_found.append(application);
    }

    [[nodiscard]] bool isShown(const DesktopEntry& entry) const
    {
        return entry.type == "Application"_L1 && !entry.isHidden && !entry.isNoDisplay &&
               (m_menu == Menu::ofAnyDesktop || entry.isShownIn(m_desktops)) &&
               (entry.tryExec.isEmpty() || isThere(entry.tryExec, m_files));
    }

    const FileManager& m_files;
    const Menu m_menu;
    const QStringList m_languages = messageLanguages();
    const QStringList m_desktops =
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    QHash<QString, qsizetype> m_places; ///< among those found, by their ids; -1 of one that is not shown
    QList<DesktopApplication> m_found;
};

} // namespace

QList<DesktopApplication> desktopApplications(const FileManager& files, Menu menu)
{
    return Search(files, menu).run();
}

DesktopApplication hiddenApplication(const DesktopApplication& application, const HiddenEntry& hidden,
                                     const FileManager& files)
{
    return {.id = application.id,
            .file = hidden.file,
            .dataFolder = hidden.dataFolder,
            .entry = readEntry(hidden.file, messageLanguages(), files).value_or(DesktopEntry())};
}

bool isUsersOwn(const FileURL& place, const FileManager& files)
{
    return isAtOrBelow(place, files.homeDirectory()) ||
           isAtOrBelow(place, files.applicationSupportDirectory());
}

} // namespace keelbright
