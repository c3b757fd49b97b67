#pragma once

#include <QByteArray>
#include <optional>

namespace keelbright::testing {

/// Content that can be verified: it holds its file's name and version and ends with its checksum, so
/// that half a file or a mixture of two is recognised. At least 64 bytes.
[[nodiscard]] QByteArray sealedContent(const QByteArray& name, int version, qsizetype size);

/// The version of the content if it is whole and has this name; else nothing.
[[nodiscard]] std::optional<int> sealedVersion(const QByteArray& name, const QByteArray& content);

} // namespace keelbright::testing
