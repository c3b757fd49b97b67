#include "KeelbrightCore/platform/files/DirectoryReader.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <dirent.h>
#include <fcntl.h>
#include <tuple>

namespace keelbright {

namespace {

bool isDotEntry(const char* name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

std::optional<EntryType> typeOf(unsigned char directoryType)
{
    switch (directoryType) {
    case DT_REG:
        return EntryType::regularFile;
    case DT_DIR:
        return EntryType::directory;
    case DT_LNK:
        return EntryType::symbolicLink;
    case DT_UNKNOWN:
        return std::nullopt;
    default:
        return EntryType::other;
    }
}

} // namespace

#ifdef __linux__

namespace {

/// The same as the C library's; a larger one did not make a walk faster.
constexpr size_t bufferSize = size_t{32} * 1024;

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
        const auto* entry = reinterpret_cast<const dirent64*>(m_buffer.get() + m_offset);
        m_offset += entry->d_reclen;
        m_position = entry->d_off;
        if (!isDotEntry(entry->d_name))
            return RawDirectoryEntry{entry->d_name, typeOf(entry->d_type), entry->d_ino};
    }
}

std::expected<bool, int> DirectoryReader::fill(int folder)
{
    if (!m_buffer)
        m_buffer = std::make_unique_for_overwrite<char[]>(bufferSize);
    if (m_isSuspended && ::lseek(folder, m_position, SEEK_SET) < 0)
        return std::unexpected(errno);
    m_isSuspended = false;
    const ssize_t count = retrying([&] { return ::getdents64(folder, m_buffer.get(), bufferSize); });
    // A folder that was removed meanwhile reads as ended.
    if (count < 0 && errno != ENOENT)
        return std::unexpected(errno);
    m_size = count > 0 ? static_cast<size_t>(count) : 0;
    m_offset = 0;
    return m_size > 0;
}

void DirectoryReader::suspend()
{
    m_buffer.reset();
    m_size = 0;
    m_offset = 0;
    m_isSuspended = true;
}

#else

std::expected<std::optional<RawDirectoryEntry>, int> DirectoryReader::read(int folder)
{
    if (!m_stream) {
        if (const auto opened = openStream(folder); !opened)
            return std::unexpected(opened.error());
    }
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(m_stream.get());
        if (!entry)
            return errno == 0 ? std::expected<std::optional<RawDirectoryEntry>, int>(std::nullopt)
                              : std::unexpected(errno);
        if (!isDotEntry(entry->d_name))
            return RawDirectoryEntry{entry->d_name, typeOf(entry->d_type), entry->d_ino};
    }
}

std::expected<void, int> DirectoryReader::openStream(int folder)
{
    // The stream gets an open file of its own, whose position it moves and which it closes.
    FileDescriptor own(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!own.isOpen())
        return std::unexpected(errno);
    m_stream.reset(::fdopendir(own.get()));
    if (!m_stream)
        return std::unexpected(errno);
    std::ignore = own.release();
    if (m_isSuspended)
        ::seekdir(m_stream.get(), m_position);
    m_isSuspended = false;
    return {};
}

void DirectoryReader::suspend()
{
    if (m_stream)
        m_position = ::telldir(m_stream.get());
    m_stream.reset();
    m_isSuspended = true;
}

#endif

} // namespace keelbright
