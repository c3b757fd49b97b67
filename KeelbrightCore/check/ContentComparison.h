#pragma once

#include "KeelbrightCore/check/CopyReadAhead.h"
#include "KeelbrightCore/platform/system/Cancellation.h"

#include <optional>

namespace keelbright {

/// Compares the content of an original with that of its copy, piece by piece, in the order of the file.
class ContentComparison
{
public:
    enum class Result {
        same,
        differs,
        originalUnreadable, ///< see `code`
    };

    /// Both have this size by their status.
    ContentComparison(ReadOnlyFile original, PieceBuffer& memory);

    /// Compares a piece of the copy, data or hole. Reads no more of the original once the two differ.
    void compare(const CopyPiece& piece);

    /// When all of the copy has been read.
    [[nodiscard]] Result result() const;

    /// Why the original could not be read; 0 where it ends before its size says so.
    [[nodiscard]] int code() const { return m_code; }

    [[nodiscard]] const ReadOnlyFile& original() const { return m_original; }

private:
    void compareData(const CopyPiece& piece);
    void compareHole(const CopyPiece& piece);
    /// Reads the original at `offset`; fails this where it has fewer than `size` bytes there.
    [[nodiscard]] bool readOriginal(qint64 offset, qint64 size);

    ReadOnlyFile m_original;
    PieceBuffer& m_memory;
    Result m_result = Result::same;
    qint64 m_compared = 0;
    int m_code = 0;
};

/// Reads both from beginning to end and compares them, past the memory of the system for the copy. A failure
/// is the `errno` value of the copy. Once it is cancelled, it stops in the middle, and what it gives means
/// nothing.
[[nodiscard]] std::expected<ContentComparison::Result, int>
compareAgain(ContentComparison& comparison, ReadOnlyFile& copy, const Cancellation& cancellation);

} // namespace keelbright
