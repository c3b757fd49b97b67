#include "KeelbrightCore/backup/PendingItems.h"

#include "KeelbrightCore/backup/BackupEngine.h"
#include "KeelbrightCore/backup/ErrorLine.h"

namespace keelbright {

namespace {

/// A pending copy takes room on the drive beside the old file that it is to replace.
constexpr qint64 maximumBytes = 4'000'000;

} // namespace

PendingItems::PendingItems(BackupTask& task, qsizetype maximum)
    : m_task(task)
    , m_maximum(maximum)
{}

void PendingItems::add(Item item)
{
    if (item.copy)
        m_bytes += item.copy->sourceSize();
    m_items.push_back(std::move(item));
    // All of them as soon as the main thread has made its change: items that wait longer are no longer
    // in the processor's caches when they are published.
    if (!m_task.isPending() || !hasRoom())
        completeWaiting();
}

void PendingItems::completeAll()
{
    completeWaiting();
    m_task.wait();
}

bool PendingItems::hasRoom() const
{
    return std::ssize(m_items) < m_maximum && m_bytes <= maximumBytes;
}

void PendingItems::completeWaiting()
{
    while (!m_items.empty()) {
        m_task.wait();
        if (m_task.cancellation().isCancelled())
            return;
        completeFirst();
    }
}

void PendingItems::completeFirst()
{
    Item item = std::move(m_items.front());
    m_items.pop_front();
    if (item.copy) {
        const qint64 size = item.copy->sourceSize();
        m_bytes -= size;
        if (const auto published = item.copy->publish(); published) {
            item.change = [size, name = std::move(item.name)](BackupEngine& engine) {
                engine.incrementCopied(size, name);
            };
        } else {
            item.change = skippedItem(item.name, published.error());
        }
    }
    m_task.post(std::move(item.change));
}

BackupTask::Change PendingItems::skippedItem(const QString& name, const FileError& error)
{
    return [line = skipLine(name, error)](BackupEngine& engine) {
        engine.incrementSkipped();
        engine.appendError(line);
    };
}

} // namespace keelbright
