#include "KeelbrightCore/backup/SourceCopy.h"

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/ErrorLine.h"
#include "KeelbrightCore/backup/FileScanner.h"

namespace keelbright {

SourceCopy::SourceCopy(DirectoryEnumerator& items, CopyDestination& destination, FileURL root,
                       QByteArray relativeRoot, BackupTask& task)
    : m_items(items)
    , m_destination(destination)
    , m_root(std::move(root))
    , m_relativeRoot(std::move(relativeRoot))
    , m_task(task)
    , m_pending(task, destination)
{
    // What lies in an unreadable folder is missing from the backup, and the user has to know.
    m_destination.setFilledFolderHandler(
        [this](std::unique_ptr<FilledFolder> folder) { m_pending.addFolder(std::move(folder)); });
    m_items.setErrorHandler([this](const FileURL&, const FileError& error) { m_folderErrors.append(error); });
}

void SourceCopy::run()
{
    while (m_items.next()) {
        reportUnreadableFolders();
        if (m_task.cancellation().isCancelled())
            break;
        if (m_destination.isOwnFolder(m_items))
            m_items.skipDescendants(); // reached by a link above it, or mounted here as well
        else if (FileScanner::shouldSkip(m_items))
            m_pending.addChange([](BackupEngine& engine) { engine.incrementSkipped(); });
        else if (!m_items.isDirectoryFollowingLinks())
            copyCurrent();
    }
    reportUnreadableFolders();
    m_destination.leaveFolders();
    m_pending.completeAll();
    m_destination.setFilledFolderHandler({});
    m_items.setErrorHandler({});
}

void SourceCopy::reportUnreadableFolders()
{
    for (const FileError& error : std::exchange(m_folderErrors, {}))
        m_pending.addChange(PendingItems::skippedItem(error.name, error));
}

void SourceCopy::copyCurrent()
{
    const QString name = QString::fromUtf8(m_items.name());
    if (const auto entered = enterFolder(); !entered) {
        const FileURL folder = m_root.appendingNative(m_items.relativeFolder());
        const QString line = errorLine(QStringLiteral("Dir error ") + folder.path(), entered.error());
        m_pending.addChange([line](BackupEngine& engine) {
            engine.appendError(line);
            engine.incrementSkipped();
        });
        return;
    }
    if (auto plan = planCurrent())
        m_pending.addCopy(std::move(*plan), name);
    else
        m_pending.addChange(PendingItems::skippedItem(name, plan.error()));
}

std::expected<PlannedCopy, FileError> SourceCopy::planCurrent()
{
    auto plan = m_destination.plan(m_items);
    if (!plan && plan.error().isForLackOfRoom()) {
        m_pending.completeAll(); // the pending copies keep files open
        plan = m_destination.plan(m_items);
    }
    return plan;
}

std::expected<void, FileError> SourceCopy::enterFolder()
{
    const QByteArrayView folder = m_items.relativeFolder();
    // Most items lie in the folder of the item before: no path is built for them.
    if (m_hasEntered && folder == m_enteredFolder)
        return {};
    QByteArray path = m_relativeRoot;
    if (!folder.isEmpty())
        path.append('/').append(folder);
    auto entered = m_destination.enterFolder(path, &m_items);
    m_hasEntered = entered.has_value();
    m_enteredFolder = folder.toByteArray();
    return entered;
}

} // namespace keelbright
