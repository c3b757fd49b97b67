// Linked into every test program of the thread sanitizer's build. Debian's Qt is not instrumented: if
// one of its functions orders the work of two threads, the sanitizer does not know that order and would
// report correct code as a race. This file redefines the functions by which the program orders its
// threads: a definition in the program is used before that of the library; each one declares what
// happens before what and then calls the library's function. Accesses that Qt does not order are still
// reported (PlantedRace.cpp).

#include <QCoreApplication>
#include <QFutureInterface>
#include <QRunnable>
#include <QSemaphore>
#include <QThreadPool>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <memory>
#include <sanitizer/tsan_interface.h>
#include <tuple>

namespace {

/// The library's own function with this mangled name.
template <typename Function> Function original(const char* symbol)
{
    void* const found = ::dlsym(RTLD_NEXT, symbol);
    if (found == nullptr) {
        std::fprintf(stderr, "Qt has no %s here\n", symbol);
        std::abort();
    }
    return reinterpret_cast<Function>(found);
}

/// A task in a pool: it happens after what was done before it was started, and before what a thread
/// does that finds the pool idle.
class HandedIn : public QRunnable
{
public:
    HandedIn(QThreadPool* pool, QRunnable* task)
        : m_pool(pool)
        , m_task(task)
        , m_owned(task->autoDelete() ? task : nullptr)
    {
        __tsan_release(this);
    }

    void run() override
    {
        __tsan_acquire(this);
        m_task->run();
        m_owned.reset();
        __tsan_release(m_pool);
    }

private:
    QThreadPool* m_pool;
    QRunnable* m_task;
    std::unique_ptr<QRunnable> m_owned;
};

} // namespace

void QThreadPool::start(QRunnable* runnable, int priority)
{
    static const auto start =
        original<void (*)(QThreadPool*, QRunnable*, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    start(this, new HandedIn(this, runnable), priority);
}

void QThreadPool::start(std::function<void()> functionToRun, int priority)
{
    start(QRunnable::create(std::move(functionToRun)), priority);
}

bool QThreadPool::tryStart(std::function<void()> functionToRun)
{
    static const auto start =
        original<bool (*)(QThreadPool*, QRunnable*)>("_ZN11QThreadPool8tryStartEP9QRunnable");
    auto task = std::make_unique<HandedIn>(this, QRunnable::create(std::move(functionToRun)));
    const bool isStarted = start(this, task.get());
    if (isStarted)
        std::ignore = task.release(); // owned by the pool, and perhaps already destroyed
    return isStarted;
}

int QThreadPool::activeThreadCount() const
{
    static const auto count = original<int (*)(const QThreadPool*)>("_ZNK11QThreadPool17activeThreadCountEv");
    const int active = count(this);
    __tsan_acquire(const_cast<QThreadPool*>(this));
    return active;
}

// What was done before an event was posted happens before what is done when it is delivered. This also
// covers events that Qt posts itself.
void QCoreApplication::postEvent(QObject* receiver, QEvent* event, int priority)
{
    static const auto post =
        original<void (*)(QObject*, QEvent*, int)>("_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    __tsan_release(event);
    post(receiver, event, priority);
}

namespace {

/// Called by Qt before each delivery with the receiver, the event and the result; false lets Qt go on.
bool acquireEvent(void** delivery)
{
    __tsan_acquire(delivery[1]);
    return false;
}

[[maybe_unused]] const bool areDeliveriesWatched =
    QInternal::registerCallback(QInternal::EventNotifyCallback, acquireEvent);

} // namespace

// The last owner of a future clears its results, and does so after all other owners have let go.
bool QFutureInterfaceBase::derefT() const noexcept
{
    static const auto deref =
        original<bool (*)(const QFutureInterfaceBase*)>("_ZNK20QFutureInterfaceBase6derefTEv");
    void* const shared = d;
    __tsan_release(shared);
    const bool isShared = deref(this);
    if (!isShared)
        __tsan_acquire(shared);
    return isShared;
}

// What was done before a future was reported finished happens before what a thread does that finds it
// finished.
void QFutureInterfaceBase::reportFinished()
{
    static const auto report =
        original<void (*)(QFutureInterfaceBase*)>("_ZN20QFutureInterfaceBase14reportFinishedEv");
    __tsan_release(d);
    report(this);
}

void QFutureInterfaceBase::waitForFinished()
{
    static const auto wait =
        original<void (*)(QFutureInterfaceBase*)>("_ZN20QFutureInterfaceBase15waitForFinishedEv");
    wait(this);
    __tsan_acquire(d);
}

bool QFutureInterfaceBase::isFinished() const
{
    static const auto ask =
        original<bool (*)(const QFutureInterfaceBase*)>("_ZNK20QFutureInterfaceBase10isFinishedEv");
    const bool isFinished = ask(this);
    if (isFinished)
        __tsan_acquire(d);
    return isFinished;
}

// What was done before a continuation was attached happens before the continuation.
void QFutureInterfaceBase::setContinuation(std::function<void(const QFutureInterfaceBase&)> func,
                                           QFutureInterfaceBasePrivate* continuationFutureData)
{
    using Continue = std::function<void(const QFutureInterfaceBase&)>;
    static const auto set = original<void (*)(QFutureInterfaceBase*, Continue, QFutureInterfaceBasePrivate*)>(
        "_ZN20QFutureInterfaceBase15setContinuationESt8functionIFvRKS_EEP27QFutureInterfaceBasePrivate");
    void* const shared = d;
    __tsan_release(shared);
    set(
        this,
        [func = std::move(func), shared](const QFutureInterfaceBase& parent) {
            __tsan_acquire(shared);
            func(parent);
        },
        continuationFutureData);
}

// What was done before a release happens before what is done after the acquisition.
void QSemaphore::release(int n)
{
    static const auto release = original<void (*)(QSemaphore*, int)>("_ZN10QSemaphore7releaseEi");
    __tsan_release(this);
    release(this, n);
}

void QSemaphore::acquire(int n)
{
    static const auto acquire = original<void (*)(QSemaphore*, int)>("_ZN10QSemaphore7acquireEi");
    acquire(this, n);
    __tsan_acquire(this);
}

bool QSemaphore::tryAcquire(int n)
{
    static const auto acquire = original<bool (*)(QSemaphore*, int)>("_ZN10QSemaphore10tryAcquireEi");
    const bool isAcquired = acquire(this, n);
    if (isAcquired)
        __tsan_acquire(this);
    return isAcquired;
}

bool QSemaphore::tryAcquire(int n, int timeout)
{
    static const auto acquire = original<bool (*)(QSemaphore*, int, int)>("_ZN10QSemaphore10tryAcquireEii");
    const bool isAcquired = acquire(this, n, timeout);
    if (isAcquired)
        __tsan_acquire(this);
    return isAcquired;
}
