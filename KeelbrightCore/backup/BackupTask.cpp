#include "KeelbrightCore/backup/BackupTask.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>
#include <chrono>
#include <tuple>
#include <utility>

namespace keelbright {

namespace {

using SteadyClock = std::chrono::steady_clock;

/// How long the main thread makes changes before it goes back to its events: well under a frame.
constexpr auto longestStay = std::chrono::milliseconds(2);

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
        task->deleteLater();
}

void BackupTask::post(Change change, NextChange next)
{
    if (m_cancellation.isQuitting())
        return;
    m_change = std::move(change);
    m_next = next;
    m_runThread.noteProcessor();
    m_isPending = true;
    if (!m_isMainThreadSpinning)
        QCoreApplication::postEvent(this, new QEvent(changeEvent));
}

void BackupTask::wait()
{
    if (m_runThread.until([this] { return !isPending(); }, m_mainThread))
        return;
    m_isRunAsleep = true;
    // The change may have been made just before the line above, and then nobody wakes this thread.
    if (!isPending() && m_isRunAsleep.exchange(false))
        return;
    m_wakeUp.acquire();
}

void BackupTask::hop(Change change)
{
    post(std::move(change));
    wait();
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
    // Set before the first change is made: the run may post its next one before this thread is back here.
    m_isMainThreadSpinning = true;
    while (makeChange() && SteadyClock::now() < leaveAt && hasNextChange()) {
    }
    m_isMainThreadSpinning = false;
    // A run that posted while the flag was still set has sent no event.
    if (isPending())
        QCoreApplication::postEvent(this, new QEvent(changeEvent));
    return true;
}

bool BackupTask::makeChange()
{
    if (!isPending())
        return false;
    m_mainThread.noteProcessor();
    const bool isFollowedSoon = m_next == NextChange::soon; // the run may post as soon as this one is made
    // Moved out, so that what it carries is destroyed before the run goes on.
    std::exchange(m_change, nullptr)(m_engine);
    m_isPending = false;
    wakeRun();
    return isFollowedSoon;
}

bool BackupTask::hasNextChange()
{
    const auto hasNews = [this] { return m_isPending || m_cancellation.isQuitting(); };
    std::ignore = m_mainThread.until(hasNews, m_runThread);
    return isPending();
}

void BackupTask::wakeRun()
{
    if (m_isRunAsleep.exchange(false))
        m_wakeUp.release();
}

} // namespace keelbright
