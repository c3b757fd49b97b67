#include "KeelbrightCore/backup/BackupTask.h"

#include "KeelbrightCore/platform/system/WaitForMemory.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <new>
#include <thread>
#include <tuple>
#include <utility>

namespace keelbright {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// How long the main thread makes changes before it goes back to its events: well under a frame.
constexpr auto longestStay = std::chrono::milliseconds(2);
/// Before the run asks again for a change that there was no memory for.
constexpr auto pauseWithoutMemory = std::chrono::milliseconds(20);

const QEvent::Type changeEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

} // namespace

std::shared_ptr<BackupTask> BackupTask::create(BackupEngine& engine)
{
    return {new BackupTask(engine), &BackupTask::destroy};
}

BackupTask::BackupTask(BackupEngine& engine)
    : m_engine(engine)
{}

void BackupTask::destroy(BackupTask* task)
{
    // Where the run lets go last: its thread must not destroy an object of the main thread.
    if (task->thread() == QThread::currentThread())
        delete task;
    else
        waitingForMemory([task] { task->deleteLater(); });
}

void BackupTask::post(Change change, NextChange next)
{
    if (m_cancellation.isQuitting())
        return;
    m_change = std::move(change);
    offer(next);
}

void BackupTask::offer(NextChange next)
{
    m_next = next;
    m_runThread.noteProcessor();
    m_isPending = true;
    if (m_isMainThreadAsleep.exchange(false)) {
        m_mainThreadWakeUp.release();
        return;
    }
    while (isPending() && !callMainThread())
        std::this_thread::sleep_for(pauseWithoutMemory);
}

void BackupTask::wait()
{
    waitForMainThread();
    while (!m_cancellation.isQuitting() && !m_isMade) {
        std::this_thread::sleep_for(pauseWithoutMemory);
        offer(NextChange::later);
        waitForMainThread();
    }
}

void BackupTask::waitForMainThread()
{
    const auto isMade = [this] { return !isPending(); };
    if (m_runThread.until(isMade, m_mainThread))
        return;
    // On one processor each change would cost two wake-ups: they take turns there.
    if (m_runThread.leaveProcessorOf(m_mainThread) && m_runThread.until(isMade, m_mainThread))
        return;
    m_isRunAsleep = true;
    // The change may have been made just before the line above, and then nobody wakes this thread.
    if (!isPending() && m_isRunAsleep.exchange(false))
        return;
    m_runWakeUp.acquire();
}

void BackupTask::hop(Change change)
{
    post(std::move(change));
    wait();
}

void BackupTask::hopLast(Change change)
{
    m_lastChange = std::move(change);
    hop(waitingForMemory([this] { return Change([this](BackupEngine&) { makeLastChange(); }); }));
}

void BackupTask::makeLastChange()
{
    // Moved out, because an observer of the change may let the program quit.
    Change change = std::exchange(m_lastChange, nullptr);
    if (!change)
        return;
    try {
        change(m_engine);
    } catch (const std::bad_alloc&) {
        m_lastChange = std::move(change);
        throw;
    }
}

void BackupTask::quit()
{
    m_cancellation.quit();
    wakeRun();
}

bool BackupTask::waitForEnd(int milliseconds)
{
    const bool hasEnded = m_ended.tryAcquire(1, milliseconds);
    if (hasEnded)
        m_ended.release(); // for the next call
    return hasEnded;
}

bool BackupTask::event(QEvent* event)
{
    if (event->type() != changeEvent)
        return QObject::event(event);
    const auto leaveAt = SteadyClock::now() + longestStay;
    do {
        while (makeChange() && SteadyClock::now() < leaveAt && hasNextChange(leaveAt)) {
        }
        m_isMainThreadCalled = false;
        // A run that posted while the flag was still set has sent no event.
    } while (isPending() && !callMainThread());
    return true;
}

bool BackupTask::callMainThread()
try {
    if (!m_isMainThreadCalled && !m_isMainThreadCalled.exchange(true))
        QCoreApplication::postEvent(this, new QEvent(changeEvent));
    return true;
} catch (const std::bad_alloc&) {
    m_isMainThreadCalled = false;
    return false;
}

bool BackupTask::makeChange()
{
    if (!isPending())
        return false;
    m_mainThread.noteProcessor();
    const bool isFollowedSoon = m_next == NextChange::soon; // the run may post as soon as this one is made
    const bool isMade = tryChange();
    m_isMade = isMade;
    m_wasCancelledAtLastChange = m_cancellation.isCancelled();
    m_isPending = false;
    wakeRun();
    return isFollowedSoon && isMade;
}

bool BackupTask::tryChange()
{
    // Moved out, so that what it carries is destroyed before the run goes on.
    Change change = std::exchange(m_change, nullptr);
    try {
        change(m_engine);
        return true;
    } catch (const std::bad_alloc&) {
        m_change = std::move(change);
        return false;
    }
}

/// Whether there is one before the main thread has to leave.
bool BackupTask::hasNextChange(SteadyClock::time_point leaveAt)
{
    if (!m_mainThread.until([this] { return hasNews(); }, m_runThread)) {
        using std::chrono::milliseconds;
        const auto remaining = std::chrono::ceil<milliseconds>(leaveAt - SteadyClock::now());
        sleepUntilNews(std::max(remaining, milliseconds(0)));
    }
    return isPending();
}

/// Where both threads share a processor, or the run takes its time: to sleep here costs a third of a turn
/// of the event loop.
void BackupTask::sleepUntilNews(std::chrono::milliseconds longest)
{
    m_isMainThreadAsleep = true;
    const bool isAwaited = !hasNews(); // the run may have posted just before the line above
    if (isAwaited && m_mainThreadWakeUp.tryAcquire(1, static_cast<int>(longest.count())))
        return;
    if (!m_isMainThreadAsleep.exchange(false))
        m_mainThreadWakeUp.acquire(); // the run has released it meanwhile
}

void BackupTask::wakeRun()
{
    if (m_isRunAsleep.exchange(false))
        m_runWakeUp.release();
}

} // namespace keelbright
