#include "KeelbrightCore/backup/SourceCopy.h"

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/ErrorLine.h"
#include "KeelbrightCore/backup/FileScanner.h"
#include "KeelbrightCore/platform/files/OutOfMemory.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

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

SourceCopy::~SourceCopy()
{
    m_destination.setFilledFolderHandler({});
    m_items.setErrorHandler({});
}

void SourceCopy::run()
{
    // Reached by a link above it, or mounted here as well.
    const FileScanner::LeftOut isOwnFolder = [this](const DirectoryEnumerator& item) {
        return m_destination.isOwnFolder(item);
    };
    while (goToNext()) {
        reportUnreadableFolders();
        if (m_task.cancellation().isCancelled())
            break;
        const auto handling = waitingForMemory([&] { return FileScanner::handlingOf(m_items, isOwnFolder); });
        if (handling == FileScanner::Handling::skipped)
            addChange([](BackupEngine& engine) { engine.incrementSkipped(); });
        else if (handling == FileScanner::Handling::copied)
            copyCurrent();
    }
    reportUnreadableFolders();
    waitingForMemory([this] { m_destination.leaveFolders(); });
    m_pending.completeAll();
}

/// Goes on where it was interrupted when there is memory again: no item is passed over.
bool SourceCopy::goToNext()
{
    return waitingForMemory([this] { return m_items.next(); });
}

template <typename Change> void SourceCopy::addChange(const Change& change)
{
    m_pending.addChange(waitingForMemory([&] { return BackupTask::Change(change); }));
}

void SourceCopy::addSkipped(const QString& name, const FileError& error)
{
    m_pending.addChange(waitingForMemory([&] { return PendingItems::skippedItem(name, error); }));
}

void SourceCopy::reportUnreadableFolders()
{
    for (const FileError& error : std::exchange(m_folderErrors, {}))
        addSkipped(error.name, error);
}

void SourceCopy::copyCurrent()
{
    const QByteArrayView bytes = m_items.name();
    const QString name = waitingForMemory([&] { return QString::fromUtf8(bytes); });
    const QByteArrayView folder = m_items.relativeFolder();
    const auto enter = [&] {
        return orOutOfMemory(FileError::Operation::created, folder.isEmpty() ? m_relativeRoot : folder,
                             [this] { return enterFolder(); });
    };
    auto entered = enter();
    if (!entered && entered.error().isForLackOfRoom()) {
        m_pending.completeAll(); // the pending copies keep files open, and take room beside the old ones
        entered = enter();
    }
    if (!entered) {
        const auto line = [&] {
            const QString path = m_root.appendingNative(folder).path();
            return errorLine(QStringLiteral("Dir error ") + path, entered.error());
        };
        addChange([line = waitingForMemory(line)](BackupEngine& engine) {
            engine.appendError(line);
            engine.incrementSkipped();
        });
        return;
    }
    if (auto plan = planCurrent())
        m_pending.addCopy(std::move(*plan), name);
    else
        addSkipped(name, plan.error());
}

std::expected<PlannedCopy, FileError> SourceCopy::planCurrent()
{
    const auto tryToPlan = [this] {
        return orOutOfMemory(FileError::Operation::copied, m_items.name(),
                             [this] { return m_destination.plan(m_items); });
    };
    auto plan = tryToPlan();
    if (!plan && plan.error().isForLackOfRoom()) {
        m_pending.completeAll(); // the pending copies keep files open
        plan = tryToPlan();
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
    m_hasEntered = false; // nor where memory runs out on the way
    m_enteredFolder = folder.toByteArray();
    auto entered = m_destination.enterFolder(path, &m_items);
    m_hasEntered = entered.has_value();
    return entered;
}

} // namespace keelbright
