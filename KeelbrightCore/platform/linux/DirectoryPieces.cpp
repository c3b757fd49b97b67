#include "KeelbrightCore/platform/files/DirectoryPieces.h"

#include "KeelbrightCore/platform/files/FileDescriptor.h"

#include <dirent.h>

namespace keelbright {

namespace {

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

std::expected<size_t, int> DirectoryPieces::read(int folder, char* piece, size_t size)
{
    const ssize_t count = retrying([&] { return ::getdents64(folder, piece, size); });
    if (count >= 0)
        return static_cast<size_t>(count);
    if (errno == ENOENT) // the folder was removed meanwhile
        return 0;
    return std::unexpected(errno);
}

DirectoryPieces::Entry DirectoryPieces::entryAt(const char* place)
{
    const auto* entry = reinterpret_cast<const dirent64*>(place);
    return {{.name = entry->d_name, .type = typeOf(entry->d_type), .number = entry->d_ino}, entry->d_reclen};
}

} // namespace keelbright
