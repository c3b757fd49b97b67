#include "KeelbrightCore/platform/system/EndRequests.h"

#include <array>
#include <atomic>
#include <csignal>
#include <tuple>

namespace keelbright {

namespace {

constexpr std::array endSignals = {SIGTERM, SIGINT};

/// Where the signals are written to; a handler can reach nothing but a global.
std::atomic<int> wakeUpEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void wakeUp(int)
{
    const int code = errno;
    constexpr char byte = 0;
    std::ignore = ::write(wakeUpEnd, &byte, 1);
    errno = code;
}

void catchOnce(int number)
{
    struct sigaction before = {};
    if (::sigaction(number, nullptr, &before) != 0 || before.sa_handler == SIG_IGN)
        return;
    struct sigaction action = {};
    action.sa_handler = wakeUp;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    ::sigaction(number, &action, nullptr);
}

void release(int number)
{
    struct sigaction present = {};
    if (::sigaction(number, nullptr, &present) == 0 && present.sa_handler == wakeUp)
        std::ignore = std::signal(number, SIG_DFL);
}

} // namespace

EndRequests::EndRequests(QObject* parent)
    : QObject(parent)
{
    std::array<int, 2> ends = {-1, -1};
    if (::pipe(ends.data()) != 0)
        return; // without it the signals end the program at once, as they do by default
    m_readEnd = FileDescriptor(ends[0]);
    m_writeEnd = FileDescriptor(ends[1]);
    for (const int end : ends) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    wakeUpEnd = m_writeEnd.get();
    m_notifier = std::make_unique<QSocketNotifier>(m_readEnd.get(), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        std::array<char, endSignals.size()> bytes = {};
        if (::read(m_readEnd.get(), bytes.data(), bytes.size()) > 0)
            Q_EMIT received();
    });
    for (const int number : endSignals)
        catchOnce(number);
}

EndRequests::~EndRequests()
{
    for (const int number : endSignals)
        release(number);
    wakeUpEnd = -1;
}

} // namespace keelbright
