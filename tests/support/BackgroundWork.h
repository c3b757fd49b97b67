#pragma once

namespace keelbright::testing {

/// Waits until nothing is at work in the background any more; fails the test after a minute.
/// Results that are on their way to the main thread are left there.
void waitForBackgroundWork();

} // namespace keelbright::testing
