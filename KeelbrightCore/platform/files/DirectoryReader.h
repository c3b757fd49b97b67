#pragma once

#include "KeelbrightCore/platform/files/DirectoryPieces.h"
#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <expected>
#include <memory>
#include <optional>

namespace keelbright {

/// Reads the entries of one open folder in pieces. Internal to the platform folder.
///
/// `suspend` prepares for the folder being closed while the walk is far below it: the rest of its listing is
/// then read into memory. A mark in a listing would not do, as on some systems it belongs to the open folder
/// and means nothing to the same one opened again.
class DirectoryReader
{
public:
    /// What a suspended reader keeps in memory at most, in bytes, and a piece more: some fifty thousand
    /// entries. For a longer rest it keeps the folder open, as long as the process may open files.
    static constexpr size_t usualMemory = size_t{4} * 1024 * 1024;

    DirectoryReader() = default;

    explicit DirectoryReader(size_t maximumMemory)
        : m_maximumMemory(maximumMemory)
    {}

    DirectoryReader(DirectoryReader&& other) noexcept = default;
    DirectoryReader& operator=(DirectoryReader&& other) noexcept = default;
    DirectoryReader(const DirectoryReader&) = delete;
    DirectoryReader& operator=(const DirectoryReader&) = delete;
    ~DirectoryReader() = default;

    /// The next entry, "." and ".." left out; nothing at the end; else an `errno` value. Once suspended, it
    /// does not look at `folder` any more.
    [[nodiscard]] std::expected<std::optional<RawDirectoryEntry>, int> read(int folder);
    /// To be called while the folder is still open; a failure is reported by the `read` that comes to it.
    /// Where memory runs out it throws, has lost nothing, and goes on when it is called again.
    void suspend(int folder);

private:
    [[nodiscard]] std::expected<bool, int> fill(int folder);
    void growTo(size_t capacity);
    [[nodiscard]] bool keepsOpen(int folder);

    size_t m_maximumMemory = usualMemory;
    std::unique_ptr<char[]> m_pieces;
    size_t m_capacity = 0;
    size_t m_size = 0;
    size_t m_offset = 0;
    bool m_isSuspended = false;
    int m_failure = 0;     ///< the `errno` value that comes after what is in memory
    FileDescriptor m_rest; ///< the suspended folder, where more follows than lies in memory
};

} // namespace keelbright
