#include "KeelbrightCore/backup/SourceCopy.h"

#include "KeelbrightCore/backup/BackupRunner.h"
#include "KeelbrightCore/backup/BackupTask.h"
#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/platform/files/FileManager.h"

namespace keelbright {

SourceCopy::SourceCopy(DirectoryEnumerator& items, CopyDestination& destination, FileURL root,
                       QByteArray relativeRoot, BackupTask& task)
    : m_items(items)
    , m_destination(destination)
    , m_root(std::move(root))
    , m_relativeRoot(std::move(relativeRoot))
    , m_task(task)
    , m_pending(task, destination.maximumPrepared())
{
    // A folder of the user's that could not be read is missing from the backup: that must show.
    m_items.setErrorHandler([this](const FileURL&, const FileError& error) { m_folderErrors.append(error); });
}

void SourceCopy::run()
{
    bool goesOn = true;
    while (goesOn && m_items.next()) {
        if (!tellOfFolders() || m_task.cancellation().isCancelled())
            break;
        if (FileScanner::shouldSkip(m_items))
            goesOn = tell([](BackupEngine& engine) { engine.incrementSkipped(); });
        else if (!m_items.isDirectoryFollowingLinks())
            goesOn = copyCurrent();
    }
    if (goesOn && tellOfFolders())
        std::ignore = m_pending.completeAll();
    // Whatever the outcome: afterwards the run speaks to the engine again.
    std::ignore = m_task.wait();
    m_items.setErrorHandler({});
}

bool SourceCopy::tellOfFolders()
{
    for (const FileError& error : std::exchange(m_folderErrors, {})) {
        if (!tell(PendingItems::failure(error.name, error)))
            return false;
    }
    return true;
}

bool SourceCopy::copyCurrent()
{
    const QString name = QString::fromUtf8(m_items.name());
    if (const auto entered = enterFolder(); !entered) {
        const FileURL folder = m_root.appendingNative(m_items.relativeFolder());
        const QString line = QStringLiteral("Dir error ") + folder.path() + QStringLiteral(": ") +
                             entered.error().localizedDescription();
        return tell([line](BackupEngine& engine) {
            engine.appendError(line);
            engine.incrementSkipped();
        });
    }
    auto prepared = prepareCurrent();
    if (!prepared)
        return tell(PendingItems::failure(name, prepared.error()));
    return m_pending.add({.copy = std::move(*prepared), .name = name, .change = {}});
}

std::expected<std::unique_ptr<PreparedCopy>, FileError> SourceCopy::prepareCurrent()
{
    auto prepared = m_destination.prepare(m_items, m_task.cancellation());
    // Perhaps only for the room that the copies take which still wait for their names.
    if (!prepared && prepared.error().isForLackOfRoom() && m_pending.completeAll())
        prepared = m_destination.prepare(m_items, m_task.cancellation());
    return prepared;
}

std::expected<void, FileError> SourceCopy::enterFolder()
{
    const QByteArrayView folder = m_items.relativeFolder();
    // The many files of one folder come one after the other: no path is built for each.
    if (m_hasEntered && folder == m_enteredFolder)
        return {};
    QByteArray path = m_relativeRoot;
    if (!folder.isEmpty())
        path.append('/').append(folder);
    auto entered = m_destination.enterFolder(path);
    m_hasEntered = entered.has_value();
    m_enteredFolder = folder.toByteArray();
    return entered;
}

bool SourceCopy::tell(PendingItems::Change change)
{
    return m_pending.add({.copy = nullptr, .name = {}, .change = std::move(change)});
}

void BackupRunner::copySource(const BackupSource& source, const FileURL& latest, CopyDestination& destination,
                              FileManager& fileManager, BackupTask& task)
{
    const auto append = [&task](const QString& line) {
        std::ignore = task.hop([line](BackupEngine& engine) { engine.appendError(line); });
    };
    const QByteArray relativeRoot = "Personal Files/" + source.url.nativeLastPathComponent();
    const FileURL root = latest.appendingNative(relativeRoot);
    if (const auto entered = destination.enterFolder(relativeRoot); !entered) {
        append(QStringLiteral("Cannot create ") + root.path() + QStringLiteral(": ") +
               entered.error().localizedDescription());
        return;
    }
    using Option = DirectoryEnumerator::Option;
    auto items = fileManager.enumerator(source.url, Option::skipsHiddenFiles | Option::followsRootLink);
    if (!items) {
        append(QStringLiteral("Cannot enumerate: ") + source.url.path());
        return;
    }
    SourceCopy(**items, destination, root, relativeRoot, task).run();
}

} // namespace keelbright
