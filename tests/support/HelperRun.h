#pragma once

#include "KeelbrightCore/platform/system/Subprocess.h"

#include <future>

namespace keelbright::testing {

/// Runs a helper program and waits until it has ended.
[[nodiscard]] inline std::expected<Subprocess::Result, FileError>
runToItsEnd(const FileURL& executable, const QList<QByteArray>& arguments = {})
{
    std::promise<Subprocess::Result> promise;
    auto result = promise.get_future();
    const auto started = Subprocess::start(executable, arguments,
                                           [promise = std::move(promise)](Subprocess::Result ended) mutable {
                                               promise.set_value(std::move(ended));
                                           });
    if (!started)
        return std::unexpected(started.error());
    return result.get();
}

} // namespace keelbright::testing
