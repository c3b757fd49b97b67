#pragma once

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <expected>

namespace keelbright {

/// The two ends of a pipe, closed in helper programs. Internal to the platform folder.
struct Pipe
{
    FileDescriptor readEnd;
    FileDescriptor writeEnd;

    /// Fails with an `errno` value.
    [[nodiscard]] static std::expected<Pipe, int> make();
};

} // namespace keelbright
