#pragma once

#include <functional>
#include <memory>

class QApplication;

namespace keelbright {

/// Gives the application that `make` makes, which connects to the display.
/// Where no display can be used this does not return, but ends the process with code 1 after one line on
/// standard error; Qt alone would abort, which leaves a core file and a report of a crash.
[[nodiscard]] std::unique_ptr<QApplication>
connectToDisplay(const std::function<std::unique_ptr<QApplication>()>& make);

} // namespace keelbright
