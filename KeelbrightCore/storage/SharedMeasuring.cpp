#include "KeelbrightCore/storage/SharedMeasuring.h"

#include "KeelbrightCore/platform/text/ByteSum.h"
#include "KeelbrightCore/storage/SizeWalk.h"

#include <QThread>
#include <QThreadPool>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>

namespace keelbright {

namespace {

/// With more of them the drive is the limit, and each worker keeps some folders open.
constexpr int maximumWorkers = 8;

/// A folder to measure, or a part of one that another worker has passed on.
struct Task
{
    qsizetype folder = 0;
    std::unique_ptr<DirectoryEnumerator> walk; ///< of the part; absent for a whole folder
};

/// What the workers share. The helpers keep it alive: one that starts after the work is done returns
/// at once.
class Measuring
{
public:
    Measuring(const QList<FileURL>& folders, const FileManager& fm)
        : m_folders(folders)
        , m_fm(&fm)
        , m_sums(folders.size())
    {}

    /// Works until every folder is measured.
    void work()
    {
        while (std::optional<Task> task = take()) {
            const qint64 sum = measure(*task);
            finish(task->folder, sum);
        }
    }

    /// Complete once any worker has returned.
    [[nodiscard]] QList<qint64> sums()
    {
        const std::lock_guard lock(m_mutex);
        return m_sums;
    }

private:
    std::optional<Task> take()
    {
        std::unique_lock lock(m_mutex);
        ++m_idle;
        m_changed.wait(lock, [this] { return hasWork() || m_busy == 0; });
        --m_idle;
        if (!hasWork())
            return std::nullopt;
        ++m_busy;
        if (m_parts.empty())
            return Task{m_next++, nullptr};
        Task part = std::move(m_parts.front());
        m_parts.pop_front();
        --m_partCount;
        return part;
    }

    [[nodiscard]] bool hasWork() const { return !m_parts.empty() || m_next < m_folders.size(); }

    qint64 measure(Task& task)
    {
        if (!task.walk) {
            auto walk = openSizeWalk(m_folders[task.folder], *m_fm);
            if (!walk)
                return 0;
            task.walk = std::move(*walk);
        }
        return sumOfSizes(*task.walk, [&](DirectoryEnumerator& walk) { passOn(task.folder, walk); });
    }

    /// Gives the folder that the walk has just reached to a worker that has none.
    void passOn(qsizetype folder, DirectoryEnumerator& walk)
    {
        if (m_idle.load(std::memory_order_relaxed) <= m_partCount.load(std::memory_order_relaxed))
            return;
        auto part = walk.branchOff();
        if (!part)
            return;
        {
            const std::lock_guard lock(m_mutex);
            m_parts.push_back({folder, std::move(part)});
            ++m_partCount;
        }
        m_changed.notify_one();
    }

    void finish(qsizetype folder, qint64 sum)
    {
        bool isLast = false;
        {
            const std::lock_guard lock(m_mutex);
            m_sums[folder] = addedWithoutOverflow(m_sums[folder], sum);
            --m_busy;
            isLast = m_busy == 0 && !hasWork();
        }
        if (isLast)
            m_changed.notify_all();
    }

    const QList<FileURL> m_folders;
    const FileManager* m_fm; ///< the caller's; used only while it waits for the sums
    std::mutex m_mutex;
    std::condition_variable m_changed;
    QList<qint64> m_sums;
    std::deque<Task> m_parts;
    qsizetype m_next = 0;
    int m_busy = 0;
    // Changed under the lock and read without it: an outdated value does no harm.
    std::atomic<int> m_idle = 0;
    std::atomic<int> m_partCount = 0;
};

} // namespace

QList<qint64> measureTogether(const QList<FileURL>& folders, const FileManager& fm, QThreadPool& helpers)
{
    const auto measuring = std::make_shared<Measuring>(folders, fm);
    const int workers = folders.isEmpty() ? 1 : qMin(QThread::idealThreadCount(), maximumWorkers);
    for (int helper = 1; helper < workers; ++helper) {
        if (!helpers.tryStart([measuring] { measuring->work(); }))
            break;
    }
    measuring->work();
    return measuring->sums();
}

} // namespace keelbright
