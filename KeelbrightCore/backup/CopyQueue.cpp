#include "KeelbrightCore/backup/CopyQueue.h"

#include "KeelbrightCore/platform/files/OutOfMemory.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <new>
#include <vector>

namespace keelbright {

namespace {

/// Prepared copies take room on the drive beside the old files that they are to replace.
constexpr qint64 maximumBytes = 32'000'000;
constexpr qsizetype unlimited = std::numeric_limits<qsizetype>::max();
/// To wait for workers that are about to end; one that hangs may take hours.
constexpr auto longestWait = std::chrono::milliseconds(500);

} // namespace

CopyQueue::Result CopyQueue::prepare(const Item& item, CopyWorker& worker, const Cancellation& cancellation)
{
    if (!item.plan)
        return nullptr;
    return orOutOfMemory(FileError::Operation::copied, item.plan->name,
                         [&] { return worker.prepare(*item.plan, cancellation); });
}

CopyQueue::CopyQueue()
    : m_limit(unlimited)
{}

qsizetype CopyQueue::add(Item&& item)
{
    const auto entry = std::make_shared<Entry>();
    const Lock lock(m_mutex);
    m_entries.push_back(entry);
    entry->state = item.plan ? State::waiting : State::ready;
    entry->item = std::move(item);
    noteReady();
    wakeWorkers();
    return std::ssize(m_entries);
}

qsizetype CopyQueue::size() const
{
    const Lock lock(m_mutex);
    return std::ssize(m_entries);
}

CopyQueue::Progress CopyQueue::waitForReady(qsizetype count, std::chrono::milliseconds longest)
{
    Lock lock(m_mutex);
    m_awaited = count;
    m_workDone.wait_for(lock, longest, [this] { return m_readyCount >= m_awaited || needsTheRun(); });
    return {m_readyCount, needsTheRun()};
}

void CopyQueue::prepareOne(CopyWorker& worker, const Cancellation& cancellation)
{
    Lock lock(m_mutex);
    if (needsTheRun()) // else a worker has just come for it
        prepareNext(lock, worker, cancellation);
}

bool CopyQueue::isFirstUnderWay() const
{
    const Lock lock(m_mutex);
    if (m_entries.empty() || m_entries.front()->state == State::waiting)
        return false;
    return m_entries.front()->item.plan.has_value();
}

std::vector<CopyQueue::Item> CopyQueue::take(qsizetype count)
{
    std::vector<Item> items;
    items.reserve(static_cast<size_t>(count));
    const Lock lock(m_mutex);
    for (; count > 0; --count) {
        items.push_back(std::move(m_entries.front()->item));
        m_preparedBytes -= m_entries.front()->bytes;
        m_entries.pop_front();
    }
    m_readyCount -= std::ssize(items);
    m_nextClaim -= std::ssize(items);
    wakeWorkers();
    return items;
}

void CopyQueue::dispose(std::vector<Item> items)
{
    const Lock lock(m_mutex);
    if (m_workersAsleep + m_workersAwake == 0)
        return;
    if (m_disposed.empty()) {
        m_disposed.swap(items);
    } else {
        try {
            const size_t needed = m_disposed.size() + items.size();
            if (needed > m_disposed.capacity())
                m_disposed.reserve(std::max(needed, 2 * m_disposed.capacity()));
        } catch (const std::bad_alloc&) {
            return; // destroyed here
        }
        std::ranges::move(items, std::back_inserter(m_disposed));
    }
    wakeWorkers();
}

void CopyQueue::finishDisposal()
{
    Lock lock(m_mutex);
    destroyDisposed(lock);
}

void CopyQueue::setWorkers(int count)
{
    const Lock lock(m_mutex);
    m_workersAllowed = count;
    wakeWorkers();
}

void CopyQueue::startAgainSlowly(std::vector<Item>&& taken)
{
    std::vector<std::shared_ptr<Entry>> returned;
    while (returned.size() < taken.size())
        returned.push_back(std::make_shared<Entry>());
    std::vector<Result> dropped; // destroyed without the lock: to close a file may take its time
    Lock lock(m_mutex);
    m_limit = 1;
    waitForWorkers(lock, longestWait);
    destroyDisposed(lock);
    dropped.reserve(m_entries.size() + taken.size());
    m_entries.insert(m_entries.begin(), returned.begin(), returned.end());
    // From here on nothing needs memory.
    std::vector<Item> items = std::move(taken);
    for (size_t index = 0; index < items.size(); ++index) {
        returned[index]->item = std::move(items[index]);
        returned[index]->state = State::ready;
    }
    for (const auto& entry : m_entries) {
        if (entry->state != State::ready || !entry->item.plan)
            continue;
        dropped.push_back(std::exchange(entry->item.result, nullptr));
        entry->state = State::waiting;
        entry->bytes = 0;
    }
    m_preparedBytes = 0;
    m_readyCount = 0;
    m_nextClaim = 0;
    noteReady();
}

void CopyQueue::notePublished()
{
    const Lock lock(m_mutex);
    if (m_limit >= unlimited / 2)
        return;
    m_limit *= 2;
    wakeWorkers();
}

void CopyQueue::close(Folders folders)
{
    m_givenUp.quit();
    Lock lock(m_mutex);
    m_isClosed = true;
    m_dropped.swap(m_entries);
    m_readyCount = 0;
    m_nextClaim = 0;
    m_workToDo.notify_all();
    waitForWorkers(lock, longestWait);
    destroyDisposed(lock);
    lock.unlock();
    // Without the lock: to close a file may take its time.
    for (const auto& entry : m_dropped) {
        if (entry->state == State::ready)
            drop(entry->item, folders);
    }
    m_dropped.clear();
}

void CopyQueue::drop(Item& item, Folders folders)
{
    item.result = nullptr;
    if (item.folder && folders == Folders::giveUp)
        item.folder->giveUp();
}

void CopyQueue::work(CopyWorker& worker)
{
    Lock lock(m_mutex);
    while (!m_isClosed) {
        ++m_workersAsleep;
        m_workToDo.wait(lock, [this] { return m_isClosed || isWorthWaking(); });
        --m_workersAsleep;
        ++m_workersAwake;
        while (!m_isClosed && claimable() > 0 && m_workersAwake <= m_workersAllowed) {
            if (m_disposed.empty())
                prepareNext(lock, worker, m_givenUp);
            else
                destroyDisposed(lock);
        }
        --m_workersAwake;
        wakeTheRun();
    }
}

qsizetype CopyQueue::claimable() const
{
    const bool isFull = m_preparedBytes > maximumBytes && m_nextClaim > 0;
    return isFull ? 0 : std::min<qsizetype>(m_limit, std::ssize(m_entries)) - m_nextClaim;
}

bool CopyQueue::isWorthWaking() const
{
    return m_workersAwake < m_workersAllowed && claimable() >= worthWaking;
}

bool CopyQueue::needsTheRun() const
{
    const bool isFirstWaiting = m_readyCount < std::ssize(m_entries) && m_nextClaim == m_readyCount;
    return isFirstWaiting && m_workersAwake == 0 && !(m_workersAsleep > 0 && isWorthWaking());
}

void CopyQueue::prepareNext(Lock& lock, CopyWorker& worker, const Cancellation& cancellation)
{
    std::shared_ptr<Entry> entry = m_entries[static_cast<size_t>(m_nextClaim)];
    entry->state = State::inWork;
    ++m_inWork;
    noteReady();
    lock.unlock();
    Result result = prepare(entry->item, worker, cancellation);
    lock.lock();
    if (m_isClosed) { // nobody takes it any more
        lock.unlock();
        result = nullptr;
        entry.reset();
        lock.lock();
        --m_inWork;
        wakeTheRun();
        return;
    }
    --m_inWork;
    if (result && *result)
        entry->bytes = (*result)->sourceSize();
    m_preparedBytes += entry->bytes;
    entry->item.result = std::move(result);
    entry->state = State::ready;
    noteReady();
    wakeTheRun();
}

void CopyQueue::destroyDisposed(Lock& lock)
{
    if (m_disposed.empty())
        return;
    std::vector<Item> items;
    items.swap(m_disposed);
    lock.unlock();
    items.clear();
    lock.lock();
}

/// Counts what is ready at the front, and passes over what needs no claim.
void CopyQueue::noteReady()
{
    const auto stateAt = [this](qsizetype index) { return m_entries[static_cast<size_t>(index)]->state; };
    const qsizetype end = std::ssize(m_entries);
    while (m_readyCount < end && stateAt(m_readyCount) == State::ready)
        ++m_readyCount;
    while (m_nextClaim < end && stateAt(m_nextClaim) != State::waiting)
        ++m_nextClaim;
}

/// Wakes the run only when what it waits for is there: to wake a thread takes as long as half a copy.
void CopyQueue::wakeTheRun()
{
    if (m_awaitsWorkers ? m_inWork == 0 : m_readyCount >= m_awaited || needsTheRun())
        m_workDone.notify_one();
}

void CopyQueue::waitForWorkers(Lock& lock, std::chrono::milliseconds longest)
{
    m_awaitsWorkers = true;
    m_workDone.wait_for(lock, longest, [this] { return m_inWork == 0; });
    m_awaitsWorkers = false;
}

void CopyQueue::wakeWorkers()
{
    if (m_workersAsleep > 0 && isWorthWaking())
        m_workToDo.notify_one();
}

} // namespace keelbright
