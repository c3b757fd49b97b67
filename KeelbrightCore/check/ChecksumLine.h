#pragma once

#include <QByteArray>
#include <optional>

namespace keelbright {

/// A line of a list that `sha256sum --check` reads.
struct ChecksumLine
{
    QByteArray digest; ///< 32 bytes
    QByteArray path;   ///< any bytes

    friend bool operator==(const ChecksumLine&, const ChecksumLine&) = default;

    /// With its line break. Backslashes and line breaks of the path are written as `\\`, `\n` and `\r`; a
    /// line with one of them begins with a backslash.
    [[nodiscard]] QByteArray text() const;
    /// From a line without its line break; nothing where it is none.
    [[nodiscard]] static std::optional<ChecksumLine> fromText(const QByteArray& line);
};

} // namespace keelbright
