#pragma once

#include "KeelbrightCore/check/ChecksumLine.h"
#include "KeelbrightCore/platform/files/ReadOnlyTree.h"

#include <optional>

namespace keelbright {

/// Reads a list of checksums line by line, however long it is. One thread at a time.
class ChecksumReader
{
public:
    [[nodiscard]] static std::expected<ChecksumReader, FileError> open(const FileURL& list);

    /// When the list was written last, in nanoseconds since 1970.
    [[nodiscard]] qint64 writtenAt() const { return m_file.status().modification; }

    /// The next line that is one of a list and whose path leads to a place below the folder that it is
    /// relative to; nothing at the end, and where the list can't be read any further.
    [[nodiscard]] std::optional<ChecksumLine> next();

    /// How many lines were none of a list so far.
    [[nodiscard]] qint64 unknownLines() const { return m_unknownLines; }

    /// Why it could not be read to its end; 0 for nothing.
    [[nodiscard]] int code() const { return m_code; }

private:
    explicit ChecksumReader(ReadOnlyFile file);

    /// Whether there is more; false at the end.
    [[nodiscard]] bool fill();
    /// Without its line break; nothing at the end.
    [[nodiscard]] std::optional<QByteArray> nextText();

    ReadOnlyFile m_file;
    PieceBuffer m_piece;
    qint64 m_offset = 0; ///< of the next piece
    qint64 m_filled = 0; ///< of the piece
    qint64 m_used = 0;
    qint64 m_unknownLines = 0;
    int m_code = 0;
};

} // namespace keelbright
