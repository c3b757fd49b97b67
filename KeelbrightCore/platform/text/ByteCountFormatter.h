#pragma once

#include <QString>

namespace keelbright {

/// Byte counts as texts for people.
namespace ByteCountFormatter {

/// Decimal units (1 KB is 1,000 bytes): "Zero KB", "1 byte", "512 bytes", whole KB, MB with up to
/// one decimal, GB and above with up to two. Trailing zeros are dropped, a count that rounds up
/// to 1,000 goes into the next unit, and the separators are those of the default locale. A negative
/// count is the positive one with the locale's sign. Any thread.
[[nodiscard]] QString string(qint64 byteCount);

} // namespace ByteCountFormatter
} // namespace keelbright
