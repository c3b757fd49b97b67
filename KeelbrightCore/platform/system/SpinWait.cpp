#include "KeelbrightCore/platform/system/SpinWait.h"

namespace keelbright {

/// Lets the other hardware thread of the core work between two checks. It does not yield the processor:
/// beside other busy programs, a thread that yields gets it back only milliseconds later.
void SpinWait::pause()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#elif defined(__aarch64__)
    __asm__ volatile("yield");
#endif
}

} // namespace keelbright
