#include "KeelbrightCore/platform/system/OpenFileLimit.h"

#include "KeelbrightCore/platform/system/ProcessCalls.h"

#include <algorithm>
#include <atomic>
#include <pthread.h>
#include <tuple>

namespace keelbright::OpenFileLimit {

namespace {

constexpr rlim_t neverRaised = 0;
std::atomic<rlim_t> limitBefore = neverRaised;

/// Turns the limit of this program into that of its children; whether they differ.
bool becomesLimitOfChild(rlimit& limit)
{
    limit.rlim_cur = limitBefore;
    return limit.rlim_cur != neverRaised;
}

/// Runs in a child between fork and its own program, where little more than a system call is allowed.
void lowerInChild()
{
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) == 0 && becomesLimitOfChild(limit))
        ::setrlimit(RLIMIT_NOFILE, &limit);
}

} // namespace

rlim_t current()
{
    rlimit limit = {};
    return ::getrlimit(RLIMIT_NOFILE, &limit) == 0 ? limit.rlim_cur : RLIM_INFINITY;
}

void raise()
{
    constexpr rlim_t wanted = 4'096;
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= wanted)
        return;
    limitBefore = limit.rlim_cur;
    limit.rlim_cur = std::min(wanted, limit.rlim_max);
    ::setrlimit(RLIMIT_NOFILE, &limit);
    static const int registered = ::pthread_atfork(nullptr, nullptr, lowerInChild);
    std::ignore = registered;
}

void lowerFor(pid_t child)
{
    if (const rlim_t before = limitBefore; before != neverRaised)
        ProcessCalls::limitOpenFiles(child, before);
}

} // namespace keelbright::OpenFileLimit
