#pragma once

#include <QByteArray>
#include <optional>

namespace keelbright::testing {

/// Content that proves itself: it names its file and its version and ends in its own checksum,
/// so that half a file, or a mixture of two, is told from a whole one. At least 64 bytes.
[[nodiscard]] QByteArray sealedContent(const QByteArray& name, int version, qsizetype size);

/// The version of whole content of that name; nothing for any other.
[[nodiscard]] std::optional<int> sealedVersion(const QByteArray& name, const QByteArray& content);

} // namespace keelbright::testing
