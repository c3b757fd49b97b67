#include "KeelbrightCore/backup/PendingItems.h"

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/ErrorLine.h"
#include "KeelbrightCore/platform/files/OutOfMemory.h"
#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/TaskPools.h"
#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QThread>
#include <QThreadPool>
#include <algorithm>
#include <iterator>
#include <ranges>

namespace keelbright {

namespace {

/// What is ready does not wait longer for the rest of its batch, so that the window shows that the run
/// goes on.
constexpr auto longestBatch = std::chrono::milliseconds(100);
/// How often the run looks whether it has been cancelled while it waits for a worker.
constexpr auto pieceOfAWait = std::chrono::milliseconds(20);
constexpr int maximumWorkers = 4;

int possibleWorkers()
{
    return std::clamp(QThread::idealThreadCount(), 1, maximumWorkers);
}

/// Not after a failed swap, whose temporary file stays as it may be the only whole copy: another try would
/// leave it beside the copy.
bool isWorthAnotherTry(const CopyQueue::Item& item)
{
    return !item.result && item.result.error().isForLackOfRoom() &&
           item.result.error().operation != FileError::Operation::replaced;
}

void flushBeforeReplacing(CopyQueue::Item& item)
{
    if (!item.plan || !item.result || !*item.result)
        return;
    const auto flushed = orOutOfMemory(FileError::Operation::flushed, item.plan->name,
                                       [&item] { return (*item.result)->flushBeforeReplacing(); });
    if (!flushed)
        item.result = std::unexpected(flushed.error());
}

std::vector<CopyQueue::Item> withRoomFor(qsizetype count)
{
    std::vector<CopyQueue::Item> items;
    items.reserve(static_cast<size_t>(count));
    return items;
}

BackupTask::Change copiedItem(const QString& name, qint64 size)
{
    return [size, name](BackupEngine& engine) { engine.incrementCopied(size, name); };
}

} // namespace

PendingItems::PendingItems(BackupTask& task, CopyDestination& destination)
    : m_task(task)
    , m_destination(destination)
    , m_worker(destination.makeWorker())
    , m_queue(std::make_shared<CopyQueue>())
    , m_maximum(destination.maximumPrepared())
    // While a batch is published, the next one is being prepared.
    , m_pace(std::max<qsizetype>(m_maximum / 2, 1), possibleWorkers())
    , m_lastBurst(Clock::now())
{}

PendingItems::~PendingItems()
{
    m_queue->close(foldersAtTheEnd());
}

void PendingItems::addCopy(PlannedCopy plan, const QString& name)
{
    add({.plan = std::move(plan), .name = name, .change = {}, .folder = nullptr});
}

void PendingItems::addFolder(std::unique_ptr<FilledFolder> folder)
{
    add({.plan = std::nullopt, .name = {}, .change = {}, .folder = std::move(folder)});
}

void PendingItems::addChange(BackupTask::Change change)
{
    add({.plan = std::nullopt, .name = {}, .change = std::move(change), .folder = nullptr});
}

void PendingItems::add(CopyQueue::Item item)
{
    const qsizetype size = waitingForMemory([&] { return m_queue->add(std::move(item)); });
    if (!m_hasWorkers && size >= CopyQueue::worthWaking)
        startWorkers();
    if (size >= std::min(2 * m_pace.setting().items, m_maximum) || isDue())
        completeSome();
}

void PendingItems::completeAll()
{
    while (m_queue->size() > 0 && !isStopped())
        completeSome();
    m_task.wait();
    m_queue->finishDisposal();
}

/// Whether nothing more is to be completed.
bool PendingItems::isStopped()
{
    // A file whose copy was under way when the user cancelled is still finished.
    return isCancelled() && !(m_queue->isFirstUnderWay() && mayCompleteFirst());
}

/// Whether it is the turn of the first item, in spite of a cancel that came after the change of the one
/// before.
bool PendingItems::mayCompleteFirst()
{
    m_task.wait();
    return !m_task.wasCancelledAtLastChange() && !m_task.cancellation().isQuitting();
}

CopyQueue::Folders PendingItems::foldersAtTheEnd() const
{
    return m_task.cancellation().isQuitting() ? CopyQueue::Folders::leave : CopyQueue::Folders::giveUp;
}

/// Completes a batch, or as much of it as is ready in time; where no worker is awake, a single item.
void PendingItems::completeSome()
{
    const qsizetype wanted = std::min(m_pace.setting().items, m_queue->size());
    CopyQueue::Progress progress = waitForBurst(wanted);
    if (isStopped())
        return;
    if (progress.ready == 0 && progress.needsTheRun) {
        m_queue->prepareOne(*m_worker, m_task.cancellation());
        progress = m_queue->waitForReady(1, {});
    }
    completeBurst(std::min(progress.ready, wanted));
}

CopyQueue::Progress PendingItems::waitForBurst(qsizetype wanted)
{
    for (;;) {
        const CopyQueue::Progress progress = m_queue->waitForReady(wanted, pieceOfAWait);
        const bool isEnough = progress.ready >= wanted || (progress.ready > 0 && (isDue() || isCancelled()));
        if (isEnough || progress.needsTheRun || isStopped())
            return progress;
    }
}

void PendingItems::completeBurst(qsizetype count)
{
    if (count == 0)
        return;
    Items items = waitingForMemory([&] { return m_queue->take(count); });
    flush(items);
    qint64 bytes = 0;
    for (auto item = items.begin(); item != items.end(); ++item) {
        m_task.wait();
        if (item == items.begin() ? !mayCompleteFirst() : isCancelled()) {
            for (; item != items.end(); ++item)
                CopyQueue::drop(*item, foldersAtTheEnd());
            return;
        }
        publish(*item);
        if (isWorthAnotherTry(*item)) {
            Items rest = waitingForMemory([&] { return withRoomFor(items.end() - item); });
            CopyQueue::Item lacking = std::move(*item);
            std::move(item + 1, items.end(), std::back_inserter(rest));
            items.clear(); // what has been completed gives its room back, too
            completeAlone(std::move(lacking), std::move(rest));
            return;
        }
        if (item->result && *item->result)
            bytes += (*item->result)->sourceSize();
        complete(*item, item + 1 == items.end() ? NextChange::later : NextChange::soon);
    }
    m_queue->dispose(std::move(items));
    const auto now = Clock::now();
    m_pace.note(count, bytes, now - m_lastBurst);
    m_queue->setWorkers(m_pace.setting().workers);
    m_lastBurst = now;
}

/// What replaces an old copy has to be on the drive before the first of the batch gets its name. The last
/// one is waited for first: then the others are there as well, most of the time, and none of them needs a
/// wait of its own.
void PendingItems::flush(Items& items)
{
    for (CopyQueue::Item& item : std::views::reverse(items)) {
        if (!isCancelled() || &item == &items.front())
            flushBeforeReplacing(item);
    }
}

/// Gives a prepared copy its name. What keeps it from that becomes the result of the item.
void PendingItems::publish(CopyQueue::Item& item)
{
    if (!item.plan || !item.result)
        return;
    PreparedCopy& copy = **item.result;
    // Made before: a copy that has its name is counted, even where memory has just run out.
    item.change = waitingForMemory([&] { return copiedItem(item.name, copy.sourceSize()); });
    const auto published =
        orOutOfMemory(FileError::Operation::copied, item.plan->name, [&copy] { return copy.publish(); });
    if (published)
        m_queue->notePublished();
    else
        item.result = std::unexpected(published.error());
}

/// Reports what has become of the item.
void PendingItems::complete(CopyQueue::Item& item, NextChange next)
{
    if (item.folder)
        item.folder->complete(); // nothing is reported
    else if (item.result)
        m_task.post(std::move(item.change), next);
    else
        m_task.post(waitingForMemory([&] { return skippedItem(item.name, item.result.error()); }), next);
}

/// Prepares an item once more when everything else that was prepared has given its room back: what is in the
/// queue, and `rest`, which comes after the item.
void PendingItems::completeAlone(CopyQueue::Item item, Items rest)
{
    waitingForMemory([&] { m_queue->startAgainSlowly(std::move(rest)); });
    item.result = CopyQueue::prepare(item, *m_worker, m_task.cancellation());
    flushBeforeReplacing(item);
    publish(item);
    complete(item, NextChange::later);
}

/// Fewer where there is not enough memory for all.
void PendingItems::startWorkers()
try {
    m_hasWorkers = true;
    m_queue->setWorkers(m_pace.setting().workers);
    for (int i = 0; i < possibleWorkers(); ++i) {
        const std::shared_ptr<CopyWorker> worker = m_destination.makeWorker();
        TaskPools::userInitiated().start([queue = m_queue, worker] { queue->work(*worker); });
    }
} catch (const std::bad_alloc&) {
    qCDebug(backupLog) << "not enough memory for all workers";
}

bool PendingItems::isDue() const
{
    return Clock::now() - m_lastBurst >= longestBatch;
}

BackupTask::Change PendingItems::skippedItem(const QString& name, const FileError& error)
{
    return [line = skipLine(name, error)](BackupEngine& engine) {
        engine.makeRoomForError(); // nothing has changed yet where that finds no memory
        engine.incrementSkipped();
        engine.appendError(line);
    };
}

} // namespace keelbright
