#pragma once

#include <QtGlobal>

#include <limits>

namespace keelbright {

/// The sum of two byte counts that are not negative; stays at the largest value instead of
/// overflowing. Special file systems tell of files larger than any drive.
[[nodiscard]] constexpr qint64 addedWithoutOverflow(qint64 total, qint64 size)
{
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    return size > most - total ? most : total + size;
}

} // namespace keelbright
