#include "KeelbrightCore/platform/system/DesktopApplications.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/MachinePlaces.h"

#include <QSet>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 maximumBytes = qint64{1024} * 1024; // far above any entry

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
    explicit Search(const FileManager& files)
        : m_files(files)
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
        if (m_ids.contains(application.id))
            return;
        m_ids.insert(application.id);
        const auto data = m_files.contents(application.file, maximumBytes);
        const auto entry = data ? DesktopEntry::fromData(*data, m_languages) : std::nullopt;
        if (!entry || !isShown(*entry))
            return;
        application.entry = *entry;
        m_found.append(application);
    }

    [[nodiscard]] bool isShown(const DesktopEntry& entry) const
    {
        return entry.type == "Application"_L1 && !entry.isHidden && !entry.isNoDisplay &&
               entry.isShownIn(m_desktops) && (entry.tryExec.isEmpty() || isThere(entry.tryExec, m_files));
    }

    const FileManager& m_files;
    const QStringList m_languages = messageLanguages();
    const QStringList m_desktops =
        qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
    QSet<QString> m_ids; ///< of entries that have been found, shown or not
    QList<DesktopApplication> m_found;
};

} // namespace

QList<DesktopApplication> desktopApplications(const FileManager& files)
{
    return Search(files).run();
}

} // namespace keelbright
