#pragma once

#include <QJsonObject>
#include <functional>

namespace keelbright::testing {

/// Starts the program without its window, which loads the settings and writes them again, and gives
/// what it has loaded, as the configuration's JSON. Calls `ready` right before.
QJsonObject startProgram(const std::function<void()>& ready);

} // namespace keelbright::testing
