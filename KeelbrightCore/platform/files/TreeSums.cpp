#include "KeelbrightCore/platform/files/TreeSums.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/files/FolderChain.h"
#include "KeelbrightCore/platform/system/ThreadPriority.h"
#include "KeelbrightCore/platform/text/ByteSum.h"

#include <QThread>
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

namespace keelbright {

namespace {

/// A smaller tree is walked before a thread has started.
constexpr qint64 entriesWorthHelp = 128;

/// A folder with a longer path is walked by whoever found it: each part holds the path of its root.
constexpr qsizetype longestSharedPath = 4096;

/// Folders that wait for a thread, for each thread: enough that none of them sleeps between two.
constexpr int pendingPerThread = 2;

/// A tree, or a folder of one that has been passed on.
struct Part
{
    qsizetype tree = 0;
    std::unique_ptr<DirectoryEnumerator> walk; ///< absent for a tree, which has still to be opened
    qsizetype pathLength = 0;                  ///< of its root below the tree
};

size_t maximumThreads()
{
    // A thread that waits for a drive leaves its processor to another one.
    const auto wanted = static_cast<size_t>(std::clamp(2 * QThread::idealThreadCount(), 2, 8));
    const size_t openFilesOfThread = 1 + maximumOpenFolders() + pendingPerThread;
    return std::clamp(openFilesForWalks() / openFilesOfThread, size_t{1}, wanted);
}

/// Starts threads that have the caller's priority.
class Helpers
{
public:
    /// Fewer where the system gives no further thread, or there is no memory for one.
    template <typename Work> void start(size_t count, Work work)
    {
        m_wereStarted = true;
        const auto begin = [work, priority = ThreadPriority::inherited()] {
            ThreadPriority::inherit(priority);
            work();
        };
        try {
            while (m_threads.size() < count)
                m_threads.emplace_back(begin);
        } catch (const std::system_error&) {
            return;
        } catch (const std::bad_alloc&) {
            return;
        }
    }

    [[nodiscard]] bool wereStarted() const { return m_wereStarted; }

    [[nodiscard]] bool areThere() const { return !m_threads.empty(); }

    void join()
    {
        for (std::thread& thread : m_threads)
            thread.join();
    }

private:
    std::vector<std::thread> m_threads;
    bool m_wereStarted = false;
};

/// The work of one call, shared by its threads.
class SharedWalk
{
public:
    SharedWalk(const QList<FileURL>& trees, DirectoryEnumerator::Options options, const EntryBytes& bytesOf,
               const FileManager& fm, const Cancellation& cancellation)
        : m_trees(trees)
        , m_options(options)
        , m_bytesOf(bytesOf)
        , m_fm(fm)
        , m_cancellation(cancellation)
        , m_sums(trees.size())
        , m_pending(trees.size())
    {}

    [[nodiscard]] QList<TreeSum> run()
    {
        work(Role::caller);
        m_helpers.join();
        return m_sums;
    }

private:
    enum class Role { caller, helper };

    void work(Role role)
    {
        while (std::optional<Part> part = take()) {
            const TreeSum sum = sumOf(*part, role);
            finish(part->tree, sum);
        }
    }

    /// The next part; nothing when all is done.
    std::optional<Part> take()
    {
        std::unique_lock lock(m_mutex);
        ++m_idle;
        m_changed.wait(lock, [this] { return hasWork() || m_busy == 0; });
        --m_idle;
        if (!hasWork())
            return std::nullopt;
        ++m_busy;
        --m_pending;
        if (m_folders.empty())
            return Part{.tree = m_nextTree++, .walk = nullptr};
        Part part = std::move(m_folders.front());
        m_folders.pop_front();
        return part;
    }

    [[nodiscard]] bool hasWork() const
    {
        return !m_cancellation.isCancelled() && (!m_folders.empty() || m_nextTree < m_trees.size());
    }

    /// What memory runs out for adds nothing, like what can't be read.
    TreeSum sumOf(Part& part, Role role)
    {
        TreeSum sum;
        try {
            addUp(sum, part, role);
        } catch (const std::bad_alloc&) {
            return sum;
        }
        return sum;
    }

    void addUp(TreeSum& sum, Part& part, Role role)
    {
        if (!part.walk) {
            auto opened = m_fm.enumerator(m_trees[part.tree], m_options);
            if (!opened)
                return;
            part.walk = std::move(*opened);
        }
        DirectoryEnumerator& walk = *part.walk;
        while (!m_cancellation.isCancelled() && walk.next()) {
            if (const std::optional<qint64> bytes = m_bytesOf(walk)) {
                ++sum.entries;
                sum.bytes = addedWithoutOverflow(sum.bytes, *bytes);
            }
            const bool isFolder = walk.type() == EntryType::directory;
            const bool isShared = role == Role::helper || hasHelpers(isFolder);
            if (isFolder && isShared)
                passOn(part);
        }
    }

    /// Whether the caller has helpers; starts them once there is enough for them to do. Called by the
    /// caller alone, for each of its entries.
    bool hasHelpers(bool isFolder)
    {
        ++m_entriesOfCaller;
        const bool isWorthHelp = m_entriesOfCaller >= entriesWorthHelp && (isFolder || m_pending > 0);
        if (isWorthHelp && !m_helpers.wereStarted()) {
            const size_t threads = maximumThreads();
            m_maximumPending = static_cast<qsizetype>(threads * pendingPerThread);
            m_helpers.start(threads - 1, [this] { work(Role::helper); });
        }
        return m_helpers.areThere();
    }

    /// Gives the folder that the walk has just reached to the next thread that has none.
    void passOn(const Part& part)
    {
        DirectoryEnumerator& walk = *part.walk;
        const qsizetype pathLength = part.pathLength + walk.relativeFolder().size() + walk.name().size() + 2;
        if (m_pending >= m_maximumPending || pathLength > longestSharedPath)
            return;
        auto branch = walk.branchOff();
        if (!branch)
            return;
        bool isAwaited = false;
        {
            const std::lock_guard lock(m_mutex);
            m_folders.push_back({.tree = part.tree, .walk = std::move(branch), .pathLength = pathLength});
            ++m_pending;
            isAwaited = m_idle > 0;
        }
        if (isAwaited)
            m_changed.notify_one();
    }

    void finish(qsizetype tree, const TreeSum& sum)
    {
        bool isLast = false;
        {
            const std::lock_guard lock(m_mutex);
            TreeSum& total = m_sums[tree];
            total.entries += sum.entries;
            total.bytes = addedWithoutOverflow(total.bytes, sum.bytes);
            --m_busy;
            isLast = m_busy == 0 && !hasWork();
        }
        if (isLast)
            m_changed.notify_all();
    }

    const QList<FileURL>& m_trees;
    const DirectoryEnumerator::Options m_options;
    const EntryBytes& m_bytesOf;
    const FileManager& m_fm;
    const Cancellation& m_cancellation;

    // The caller's alone. The helpers read what it wrote before it started them.
    Helpers m_helpers;
    qint64 m_entriesOfCaller = 0;
    qsizetype m_maximumPending = 0;

    std::mutex m_mutex; ///< for all below
    std::condition_variable m_changed;
    QList<TreeSum> m_sums;
    std::deque<Part> m_folders; ///< passed on and not yet taken
    qsizetype m_nextTree = 0;   ///< the first that nobody has taken
    int m_busy = 0;
    int m_idle = 0;
    /// Trees and folders that nobody has taken. Read without the lock, too: an outdated value does no harm.
    std::atomic<qsizetype> m_pending;
};

} // namespace

QList<TreeSum> sumTrees(const QList<FileURL>& trees, DirectoryEnumerator::Options options,
                        const EntryBytes& bytesOf, const FileManager& fm, const Cancellation& cancellation)
{
    return SharedWalk(trees, options, bytesOf, fm, cancellation).run();
}

} // namespace keelbright
