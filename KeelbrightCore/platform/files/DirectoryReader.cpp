#include "KeelbrightCore/platform/files/DirectoryReader.h"

#include <cstring>

namespace keelbright {

namespace {

bool isDotEntry(const char* name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

} // namespace

std::expected<std::optional<RawDirectoryEntry>, int> DirectoryReader::read(int folder)
{
    for (;;) {
        if (m_offset >= m_size) {
            const auto filled = fill(folder);
            if (!filled)
                return std::unexpected(filled.error());
            if (!*filled)
                return std::nullopt;
        }
        const auto [entry, length] = DirectoryPieces::entryAt(m_pieces.get() + m_offset);
        m_offset += length;
        if (!isDotEntry(entry.name))
            return entry;
    }
}

std::expected<bool, int> DirectoryReader::fill(int folder)
{
    if (m_failure != 0)
        return std::unexpected(m_failure);
    if (m_isSuspended && !m_rest.isOpen())
        return false;
    if (m_capacity != DirectoryPieces::pieceSize) {
        // Nothing that lies in memory is still to be read.
        m_size = 0;
        m_offset = 0;
        growTo(DirectoryPieces::pieceSize);
    }
    const auto count =
        DirectoryPieces::read(m_isSuspended ? m_rest.get() : folder, m_pieces.get(), m_capacity);
    if (!count)
        return std::unexpected(count.error());
    m_size = *count;
    m_offset = 0;
    return m_size > 0;
}

void DirectoryReader::suspend(int folder)
{
    if (m_isSuspended)
        return;
    m_size -= m_offset;
    if (m_offset > 0)
        std::memmove(m_pieces.get(), m_pieces.get() + m_offset, m_size);
    m_offset = 0;
    while (m_failure == 0 && !keepsOpen(folder)) {
        // Before the read, so that no entry is lost where memory runs out. Twice as much each time, because
        // all is moved.
        if (m_capacity - m_size < DirectoryPieces::pieceSize)
            growTo(2 * m_size + DirectoryPieces::pieceSize);
        const auto count = DirectoryPieces::read(folder, m_pieces.get() + m_size, DirectoryPieces::pieceSize);
        if (count && *count == 0)
            break;
        m_failure = count ? 0 : count.error();
        m_size += count.value_or(0);
    }
    if (!m_rest.isOpen())
        growTo(m_size); // the room that is left over, for as long as the walk is below
    m_isSuspended = true;
}

/// Whether the rest is left to the folder itself, which takes one of the files that may be open. Where there
/// are none left, all of it goes into memory: a listing is not broken off.
bool DirectoryReader::keepsOpen(int folder)
{
    if (m_size < m_maximumMemory)
        return false;
    m_rest = FileDescriptor::duplicate(folder);
    return m_rest.isOpen();
}

/// Or makes it smaller; keeps what is still to be read.
void DirectoryReader::growTo(size_t capacity)
{
    auto pieces = std::make_unique_for_overwrite<char[]>(capacity);
    if (m_size > 0)
        std::memcpy(pieces.get(), m_pieces.get(), m_size);
    m_pieces = std::move(pieces);
    m_capacity = capacity;
}

} // namespace keelbright
