#pragma once

#include <QColor>

namespace keelbright::testing {

/// The contrast of two opaque colours, from 1 to 21, as accessibility guidelines define it.
[[nodiscard]] double contrastRatio(const QColor& first, const QColor& second);

} // namespace keelbright::testing
