#pragma once

#include <expected>
#include <initializer_list>

namespace keelbright {

/// One way to bring what was written onto a drive: 0, or an `errno` value.
using FlushWay = int (*)(int file);

/// Flushes an open file or folder in the first of these ways that its drive has. Network drives and those of
/// cameras refuse some of them, which is no failure; a way that fails otherwise is the end, since what could
/// not be written is reported only once. Internal to the platform folder.
[[nodiscard]] std::expected<void, int> flushInFirstWay(int file, std::initializer_list<FlushWay> ways);

} // namespace keelbright
