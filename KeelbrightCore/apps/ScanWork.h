#pragma once

#include "KeelbrightCore/platform/system/UniqueFunction.h"

// The work that all application scans share out. Internal to the application scanner.

namespace keelbright::AppScanner {

/// Does a step of a scan on a thread of the user-initiated pool, in the order of the calls. All scans
/// together take no more threads than there are processors: what hangs with a drive that applications
/// lie on holds other scans, and nothing else. A step must not wait for another one, and leaves no
/// exception behind. Any thread; throws where memory runs out for the step, which is not done then.
void startStep(UniqueFunction<void()> step);

/// Calls `start`, which leaves no exception behind, once less than 32 helper programs run for all scans
/// together: at once, or in a later step. Each call is followed by one of `helperHasEnded`, in a step.
/// Throws where memory runs out before.
void whenHelperMayStart(UniqueFunction<void()> start);
void helperHasEnded();

} // namespace keelbright::AppScanner
