#include "Keelbright/state/RestoreBrowserVM.h"

#include "Keelbright/state/FolderChooser.h"
#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/text/DateFormatter.h"

#include <QPointer>
#include <algorithm>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

/// The folders whose names are dates, newest first; none where there is no such listing.
QList<BackupSnapshot> datedFolders(const FileURL& folder)
{
    const auto entries = FileManager::defaultManager().contentsOfDirectory(
        folder, DirectoryEnumerator::Option::skipsHiddenFiles);
    if (!entries)
        return {};
    QList<BackupSnapshot> snapshots;
    for (const DirectoryEntry& entry : *entries) {
        if (entry.type != EntryType::directory)
            continue;
        const auto date = DateFormatter::fromPattern(entry.url.lastPathComponent(), u"yyyy-MM-dd-HHmm"_s,
                                                     DateFormatter::Conventions::user);
        if (date)
            snapshots.append({QUuid::createUuid(), *date, entry.url});
    }
    std::ranges::stable_sort(snapshots, std::ranges::greater(), &BackupSnapshot::date);
    return snapshots;
}

} // namespace

RestoreBrowserVM::RestoreBrowserVM(FolderChooser& folderChooser, QObject* parent)
    : QObject(parent)
    , m_folderChooser(folderChooser)
{}

void RestoreBrowserVM::pickBackupFolder(const std::optional<FileURL>& start)
{
    const FolderChooserRequest request{
        .message = tr("Navigate to your Keelbright/DeviceName folder on your backup drive."),
        .prompt = tr("Open"),
        .folder = start,
    };
    // The screen may have been left while the chooser was open.
    m_folderChooser.chooseFolders(request, [model = QPointer(this)](const QList<FileURL>& urls) {
        if (model && !urls.isEmpty())
            model->open(urls.first());
    });
}

void RestoreBrowserVM::reload()
{
    if (const std::optional<FileURL> root = m_chosenBackupRoot)
        open(*root);
}

void RestoreBrowserVM::open(const FileURL& root)
{
    m_chosenBackupRoot = root;
    loadSnapshots(root);
    Q_EMIT changed();
}

void RestoreBrowserVM::loadSnapshots(const FileURL& root)
{
    const FileURL latest = root.appending(u"Latest"_s);
    m_latestURL =
        FileManager::defaultManager().fileExists(latest).exists ? std::optional(latest) : std::nullopt;
    m_snapshots = datedFolders(root.appending(u"Snapshots"_s));
}

} // namespace keelbright
