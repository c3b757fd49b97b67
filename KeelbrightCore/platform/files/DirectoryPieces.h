#pragma once

#include "KeelbrightCore/platform/files/DirectoryEnumerator.h"

#include <cstddef>
#include <expected>
#include <optional>

namespace keelbright {

/// One entry as it is stored in the directory.
struct RawDirectoryEntry
{
    const char* name = nullptr;         ///< valid until the next read of the same folder
    std::optional<EntryType> type = {}; ///< absent where the file system stores it in the inode only
    quint64 number = 0;                 ///< of the inode
    std::optional<qint64> size = {};    ///< in bytes; absent where a listing does not bring it
};

/// The system's own form of a listing, piece by piece. Internal to the platform folder.
namespace DirectoryPieces {

/// Where a piece has to lie in memory, and the least room that one call needs, in bytes.
inline constexpr size_t alignment = 8;
inline constexpr size_t pieceSize = size_t{32} * 1024;

/// Reads what follows in an open folder, as many whole entries as fit; the number of bytes, 0 at the end of
/// the listing and in a folder that was removed. The position belongs to the open folder, and is no use for
/// another one. Else an `errno` value.
[[nodiscard]] std::expected<size_t, int> read(int folder, char* piece, size_t size);

/// The entry that begins there, and how many bytes it takes. What lies in a piece is not changed.
struct Entry
{
    RawDirectoryEntry entry;
    size_t length = 0;
};

[[nodiscard]] Entry entryAt(const char* place);

} // namespace DirectoryPieces
} // namespace keelbright
