// A metadata tool that takes 50 ms for its answer.

#include <cstdio>
#include <ctime>

int main()
{
    constexpr timespec pause = {.tv_sec = 0, .tv_nsec = 50'000'000};
    ::nanosleep(&pause, nullptr);
    std::puts("kMDItemDateAdded    = 2025-01-02 03:04:05 +0000\n"
              "kMDItemLastUsedDate = 2026-03-01 09:05:00 +0000\n"
              "kMDItemUseCount     = 42");
}
