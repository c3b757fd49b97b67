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

/// One entry as the directory itself tells it.
struct RawDirectoryEntry
{
    const char* name = nullptr;    ///< valid until the next read of the same folder
    std::optional<EntryType> type; ///< absent where the file system keeps it in the inode only
};

/// Reads the entries of one open folder in pieces. Internal to the platform folder.
///
/// `suspend` gives the memory back and remembers the place, for a folder that is closed while
/// the walk is far below it.
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
    qint64 m_place = 0; ///< the file system's mark behind the last entry that was read
#else
    struct Closer
    {
        void operator()(DIR* stream) const { ::closedir(stream); }
    };

    [[nodiscard]] std::expected<void, int> openStream(int folder);

    std::unique_ptr<DIR, Closer> m_stream;
    long m_place = 0;
#endif
    bool m_isSuspended = false;
};

} // namespace keelbright
