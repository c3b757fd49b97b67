#pragma once

#include <QtGlobal>
#include <algorithm>
#include <limits>

namespace keelbright {

/// The count of things as `tr` takes it to pick the form of a text and to write "%n": Qt counts in int.
/// A larger count becomes the largest int; a negative one is counted without its sign.
[[nodiscard]] constexpr int pluralNumber(qint64 count)
{
    constexpr qint64 largest = std::numeric_limits<int>::max();
    const qint64 inRange = std::clamp(count, -largest, largest);
    return static_cast<int>(inRange < 0 ? -inRange : inRange);
}

} // namespace keelbright
