#include "KeelbrightCore/check/ChecksumReader.h"

#include "KeelbrightCore/platform/files/FileManager.h"

#include <algorithm>
#include <cstring>

namespace keelbright {

namespace {

/// No path is longer than a few thousand names.
constexpr qsizetype longestLine = qsizetype{4} * 1024 * 1024;

/// Whether a path leads downwards and nowhere else.
bool isBelow(const QByteArray& path)
{
    const QByteArrayList names = path.split('/');
    return std::ranges::all_of(names, [](const QByteArray& name) { return isFileName(name); });
}

} // namespace

std::expected<ChecksumReader, FileError> ChecksumReader::open(const FileURL& list)
{
    // A user who chooses a link to a list means the list itself.
    const FileURL place = FileManager::defaultManager().resolvingSymlinks(list);
    const auto folder = ReadOnlyTree::open(place.deletingLastPathComponent());
    if (!folder)
        return std::unexpected(folder.error());
    auto file = (*folder)->openFile({}, place.nativeLastPathComponent());
    if (!file)
        return failure(FileError::Operation::opened, list, file.error());
    return ChecksumReader(std::move(*file));
}

ChecksumReader::ChecksumReader(ReadOnlyFile file)
    : m_file(std::move(file))
{}

std::optional<ChecksumLine> ChecksumReader::next()
{
    while (const auto text = nextText()) {
        auto line = ChecksumLine::fromText(*text);
        if (line && isBelow(line->path))
            return line;
        if (!text->isEmpty())
            ++m_unknownLines;
    }
    return std::nullopt;
}

bool ChecksumReader::fill()
{
    const auto got = m_file.read(m_offset, m_piece);
    if (!got)
        m_code = got.error();
    m_filled = got.value_or(0);
    m_used = 0;
    m_offset += PieceBuffer::size;
    return m_filled > 0;
}

std::optional<QByteArray> ChecksumReader::nextText()
{
    QByteArray text;
    bool isAtEnd = m_used == m_filled && !fill();
    if (isAtEnd)
        return std::nullopt;
    while (!isAtEnd) {
        const char* const begin = m_piece.data() + m_used;
        const auto rest = static_cast<size_t>(m_filled - m_used);
        const auto* const lineBreak = static_cast<const char*>(std::memchr(begin, '\n', rest));
        const qint64 length = lineBreak ? lineBreak - begin : static_cast<qint64>(rest);
        // What is no list at all may have no line breaks: its one line is not kept whole.
        if (text.size() < longestLine)
            text.append(begin, length);
        m_used += length + (lineBreak ? 1 : 0);
        if (lineBreak)
            break;
        isAtEnd = !fill();
    }
    return text;
}

} // namespace keelbright
