#include "tests/memory/FailingAllocations.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>

// Where the program's own code begins and ends, as the linker says.
extern "C" const char __executable_start;
extern "C" const char etext;

namespace {

/// No allocation of this thread fails. In the thread's own storage from its start, so that to read it
/// allocates nothing.
thread_local bool isSpared = false;

std::atomic<bool> isArmed = false;
std::atomic<bool> isForProgramOnly = false;
std::atomic<long> seen = 0;
std::atomic<long> firstToFail = 0;
std::atomic<long> afterLast = 0;
std::atomic<long> failures = 0;

bool isOfProgram(const void* caller)
{
    const std::less<const void*> isBefore;
    return !isBefore(caller, &__executable_start) && isBefore(caller, &etext);
}

bool fails(const void* caller)
{
    if (!isArmed || isSpared || (isForProgramOnly && !isOfProgram(caller)))
        return false;
    const long number = seen++;
    if (number < firstToFail || number >= afterLast)
        return false;
    ++failures;
    return true;
}

} // namespace

// Defined in the program, these come before the library's own, for all libraries.

void* operator new(std::size_t size)
{
    void* const memory =
        fails(__builtin_return_address(0)) ? nullptr : std::malloc(std::max(size, std::size_t{1}));
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

namespace keelbright::testing {

FailingAllocations::FailingAllocations(long first, long count, Of of)
{
    isSpared = true;
    isForProgramOnly = of == Of::program;
    seen = 0;
    firstToFail = first;
    afterLast = first + count;
    failures = 0;
    isArmed = true;
}

FailingAllocations::~FailingAllocations()
{
    isArmed = false;
    isSpared = false;
}

long FailingAllocations::failed() const
{
    return failures;
}

} // namespace keelbright::testing
