#pragma once

#include <QtGlobal>

#include <functional>
#include <limits>

namespace keelbright {

/// The sum of two byte counts; stays at the largest or the smallest value instead of overflowing.
/// Special file systems report files larger than any drive, and a log that was edited by hand can
/// hold any number.
[[nodiscard]] constexpr qint64 addedWithoutOverflow(qint64 total, qint64 size)
{
    using Limits = std::numeric_limits<qint64>;
    if (size >= 0)
        return total > Limits::max() - size ? Limits::max() : total + size;
    return total < Limits::min() - size ? Limits::min() : total + size;
}

/// The same sum over a range; `sizeOf` is a member or a function that gives the byte count of one
/// element.
template <typename Range, typename SizeOf>
[[nodiscard]] constexpr qint64 sumOfBytes(const Range& range, SizeOf sizeOf)
{
    qint64 total = 0;
    for (const auto& element : range)
        total = addedWithoutOverflow(total, std::invoke(sizeOf, element));
    return total;
}

} // namespace keelbright
