#include "KeelbrightCore/platform/files/ReadOnlyFile.h"

#include "KeelbrightCore/platform/files/ReadingCalls.h"
#include "KeelbrightCore/platform/files/SystemCalls.h"

#include <algorithm>
#include <fcntl.h>
#include <new>
#include <tuple>

namespace keelbright {

namespace {

/// What the system answers where a file is expected and something else is there.
int errorForType(EntryType type)
{
    if (type == EntryType::directory)
        return EISDIR;
    return type == EntryType::symbolicLink ? ELOOP : EOPNOTSUPP;
}

} // namespace

static_assert(PieceBuffer::size % directAlignment == 0);

PieceBuffer::PieceBuffer()
    : m_memory(static_cast<char*>(std::aligned_alloc(directAlignment, size)))
{
    if (!m_memory)
        qBadAlloc(); // as all of the memory would be handled
}

std::expected<ReadOnlyFile, int> ReadOnlyFile::open(int folder, const char* name)
{
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    // Opening a device can already change something: it rewinds a tape.
    const auto listed = itemStatus(folder, name);
    if (!listed)
        return std::unexpected(listed.error());
    if (listed->type != EntryType::regularFile)
        return std::unexpected(errorForType(listed->type));
    FileDescriptor file = openKeepingAccessTime(folder, name, flags);
    // A network drive that lost its handle finds the file again by its name.
    if (!file.isOpen() && errno == ESTALE)
        file = openKeepingAccessTime(folder, name, flags);
    if (!file.isOpen())
        return std::unexpected(errno);
    const auto status = itemStatus(file.get());
    if (!status)
        return std::unexpected(status.error());
    if (status->type != EntryType::regularFile)
        return std::unexpected(EOPNOTSUPP);
    return ReadOnlyFile(std::move(file), *status);
}

ReadOnlyFile::ReadOnlyFile(FileDescriptor file, const ItemStatus& status)
    : m_file(std::move(file))
    , m_status(status)
{}

std::expected<ItemStatus, int> ReadOnlyFile::currentStatus() const
{
    return itemStatus(m_file.get());
}

void ReadOnlyFile::readFromDrive()
{
    // What was written a moment ago has to reach the drive first. A direct read of some file systems takes
    // small files out of the memory all the same, so they are forgotten in any case.
    std::ignore = SystemCalls::waitUntilWritten(m_file.get());
    forgetData(m_file.get());
    m_isDirect = readDirectly(m_file.get()).has_value();
    m_isReadFromDrive = m_isDirect || m_status.size == 0 || !remembersData(m_file.get());
}

std::expected<qint64, int> ReadOnlyFile::read(qint64 offset, PieceBuffer& piece)
{
    const qint64 expected = std::max<qint64>(m_status.size - offset, 0);
    const qint64 wanted = std::min((expected / directAlignment + 1) * directAlignment, PieceBuffer::size);
    qint64 filled = 0;
    while (filled < wanted) {
        // A direct read begins at a block: what was read of an unfinished one is read again.
        const qint64 begin = m_isDirect ? filled - filled % directAlignment : filled;
        const ssize_t got = retrying([&] {
            return ::pread(m_file.get(), piece.data() + begin, static_cast<size_t>(wanted - begin),
                           offset + begin);
        });
        if (got < 0 && errno == EINVAL && m_isDirect) {
            readThroughMemory(m_file.get());
            m_isDirect = false;
            m_isReadFromDrive = !remembersData(m_file.get());
            continue;
        }
        if (got < 0)
            return std::unexpected(errno);
        if (begin + got <= filled)
            break;
        filled = begin + got;
        if (filled == expected)
            break; // no look for more: it would read the last block once more
    }
    return filled;
}

qint64 ReadOnlyFile::nextData(qint64 offset) const
{
    return keelbright::nextData(m_file.get(), offset, m_status.size);
}

void ReadOnlyFile::announce(qint64 offset) const
{
    readAhead(m_file.get(), offset, PieceBuffer::size);
}

void ReadOnlyFile::makeChangesVisible() const
{
    std::ignore = SystemCalls::waitUntilWritten(m_file.get());
}

} // namespace keelbright
