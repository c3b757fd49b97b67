#pragma once

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"

#include <expected>
#include <memory>
#include <optional>
#include <vector>

#ifndef __linux__
#include <dirent.h>
#endif

namespace keelbright {

/// One entry as it is stored in the directory.
struct RawDirectoryEntry
{
    const char* name = nullptr;    ///< valid until the next read of the same folder
    std::optional<EntryType> type; ///< absent where the file system stores it in the inode only
    quint64 number = 0;            ///< of the inode
};

/// Reads the entries of one open folder in pieces. Internal to the platform folder.
///
/// `suspend` frees the memory and remembers the position, for a folder that is closed while the
/// walk is far below it.
class DirectoryReader
{
public:
    DirectoryReader() = default;
    DirectoryReader(DirectoryReader&& other) noexcept = default;
    DirectoryReader& operator=(DirectoryReader&& other) noexcept = default;
    DirectoryReader(const DirectoryReader&) = delete;
    DirectoryReader& operator=(const DirectoryReader&) = delete;
    ~DirectoryReader() = default;

    /// The next entry, "." and ".." left out; nothing at the end; else an `errno` value.
    [[nodiscard]] std::expected<std::optional<RawDirectoryEntry>, int> read(int folder);
    void suspend();

private:
#ifdef __linux__
    [[nodiscard]] std::expected<bool, int> fill(int folder);

    std::unique_ptr<char[]> m_buffer;
    size_t m_size = 0;
    size_t m_offset = 0;
    qint64 m_position = 0; ///< the file system's value for what follows the last entry read
#else
    struct Closer
    {
        void operator()(DIR* stream) const { ::closedir(stream); }
    };

    [[nodiscard]] std::expected<void, int> openStream(int folder);

    std::unique_ptr<DIR, Closer> m_stream;
    long m_position = 0;
#endif
    bool m_isSuspended = false;
};

} // namespace keelbright
