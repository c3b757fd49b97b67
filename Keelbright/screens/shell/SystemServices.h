#pragma once

#include "Keelbright/state/Notifier.h"
#include "Keelbright/state/SleepBlocker.h"

#include <memory>

class QWidget;

namespace keelbright {

// What the operating system or its desktop does for the program, chosen by what this machine has. Main
// thread.

[[nodiscard]] std::unique_ptr<SleepBlocker> makeSleepBlocker();
/// `window` outlives it.
[[nodiscard]] std::unique_ptr<Notifier> makeNotifier(QWidget& window);
/// Gives a shown window the frame that the platform's own programs have.
void adoptFrame(const QWidget& window);

} // namespace keelbright
