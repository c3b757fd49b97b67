#pragma once

#include <QtGlobal>

#include <functional>
#include <limits>

namespace keelbright {

/// The sum of two byte counts that are not negative; stays at the largest value instead of
/// overflowing. Special file systems report files larger than any drive.
[[nodiscard]] constexpr qint64 addedWithoutOverflow(qint64 total, qint64 size)
{
    constexpr qint64 maximum = std::numeric_limits<qint64>::max();
    return size > maximum - total ? maximum : total + size;
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
