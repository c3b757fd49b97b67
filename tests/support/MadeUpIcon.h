#pragma once

#include <QByteArray>

namespace keelbright::testing {

/// A whole `.icns` file with one picture of 128 by 128 pixels: a round-cornered tile of this colour,
/// in its middle too, with a white ring.
[[nodiscard]] QByteArray madeUpIcon(quint32 rgb);

} // namespace keelbright::testing
