#include "KeelbrightCore/backup/PendingItems.h"

#include "KeelbrightCore/backup/BackupTask.h"

namespace keelbright {

namespace {

/// More than that is not kept on the drive beside what it replaces.
constexpr qint64 mostBytesAhead = 4'000'000;

} // namespace

PendingItems::PendingItems(BackupTask& task, qsizetype most)
    : m_task(task)
    , m_most(most)
{}

bool PendingItems::add(Outcome outcome)
{
    if (outcome.copy)
        m_bytesAhead += outcome.copy->sourceSize();
    m_ahead.push_back(std::move(outcome));
    if (hasRoom() && m_task.isPending())
        return true;
    // The main thread answers again: catch up with it. What waits for long is cold in the
    // processor's caches by the time it gets its name.
    while (!m_ahead.empty()) {
        if (!completeFirst())
            return false;
    }
    return true;
}

bool PendingItems::hasRoom() const
{
    return std::ssize(m_ahead) < m_most && m_bytesAhead <= mostBytesAhead;
}

bool PendingItems::completeAll()
{
    while (!m_ahead.empty()) {
        if (!completeFirst())
            return false;
    }
    return m_task.wait();
}

bool PendingItems::completeFirst()
{
    if (!m_task.wait() || m_task.cancellation().isCancelled())
        return false;
    Outcome outcome = std::move(m_ahead.front());
    m_ahead.pop_front();
    if (outcome.copy) {
        const qint64 size = outcome.copy->sourceSize();
        m_bytesAhead -= size;
        if (const auto published = outcome.copy->publish(); published) {
            outcome.change = [size, name = std::move(outcome.name)](BackupEngine& engine) {
                engine.incrementCopied(size, name);
            };
        } else {
            outcome.change = failure(outcome.name, published.error());
        }
    }
    m_task.post(std::move(outcome.change));
    return true;
}

PendingItems::Change PendingItems::failure(const QString& name, const FileError& error)
{
    const QString line = QStringLiteral("Skip ") + name + QStringLiteral(": ") + error.localizedDescription();
    return [line](BackupEngine& engine) {
        engine.incrementSkipped();
        engine.appendError(line);
    };
}

} // namespace keelbright
