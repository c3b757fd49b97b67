#include "KeelbrightCore/check/ContentComparison.h"

#include <algorithm>
#include <cstring>

namespace keelbright {

namespace {

bool areZeros(const char* data, qint64 size)
{
    // A text whose first byte is zero and whose bytes all equal the next ones.
    return size == 0 || (data[0] == 0 && std::memcmp(data, data + 1, static_cast<size_t>(size - 1)) == 0);
}

} // namespace

ContentComparison::ContentComparison(ReadOnlyFile original, PieceBuffer& memory)
    : m_original(std::move(original))
    , m_memory(memory)
{
    if (m_original.status().size > 0)
        m_original.announce(0);
}

void ContentComparison::compare(const CopyPiece& piece)
{
    if (m_result != Result::same)
        return;
    if (piece.kind == CopyPiece::Kind::hole)
        compareHole(piece);
    else
        compareData(piece);
    m_compared = piece.offset + piece.size;
}

void ContentComparison::compareData(const CopyPiece& piece)
{
    if (!readOriginal(piece.offset, piece.size))
        return;
    if (std::memcmp(piece.buffer->data(), m_memory.data(), static_cast<size_t>(piece.size)) != 0)
        m_result = Result::differs;
}

void ContentComparison::compareHole(const CopyPiece& piece)
{
    const qint64 end = piece.offset + piece.size;
    for (qint64 offset = piece.offset; offset < end && m_result == Result::same;) {
        const qint64 data = m_original.hasHoles() ? m_original.nextData(offset) : offset;
        // Reads begin at whole pieces, as holes of copies do.
        const qint64 start = std::max(offset, data - data % PieceBuffer::size);
        if (data >= end)
            return;
        const qint64 size = std::min(PieceBuffer::size, end - start);
        if (!readOriginal(start, size))
            return;
        if (!areZeros(m_memory.data(), size))
            m_result = Result::differs;
        offset = start + size;
    }
}

bool ContentComparison::readOriginal(qint64 offset, qint64 size)
{
    const auto got = m_original.read(offset, m_memory);
    if (got && *got >= size) {
        if (offset + PieceBuffer::size < m_original.status().size)
            m_original.announce(offset + PieceBuffer::size);
        return true;
    }
    m_code = got ? 0 : got.error();
    m_result = Result::originalUnreadable;
    return false;
}

ContentComparison::Result ContentComparison::result() const
{
    // A copy that ends before its size says so can't be the same.
    return m_result == Result::same && m_compared < m_original.status().size ? Result::differs : m_result;
}

std::expected<ContentComparison::Result, int> compareAgain(ContentComparison& comparison, ReadOnlyFile& copy,
                                                           const Cancellation& cancellation)
{
    CopyPiece piece{.kind = CopyPiece::Kind::data, .status = {}, .buffer = std::make_unique<PieceBuffer>()};
    copy.readFromDrive();
    while (piece.offset < copy.status().size && !cancellation.isCancelled()) {
        const auto got = copy.read(piece.offset, *piece.buffer);
        if (!got)
            return std::unexpected(got.error());
        piece.size = *got;
        if (*got == 0)
            break;
        comparison.compare(piece);
        if (comparison.result() == ContentComparison::Result::originalUnreadable)
            break;
        piece.offset += PieceBuffer::size;
    }
    return comparison.result();
}

} // namespace keelbright
