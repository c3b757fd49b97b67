#pragma once

#include <QByteArray>

namespace keelbright::testing {

/// A whole `.icns` file with one picture of 128 by 128 pixels in one colour.
[[nodiscard]] QByteArray madeUpIcon(quint32 rgb);

} // namespace keelbright::testing
