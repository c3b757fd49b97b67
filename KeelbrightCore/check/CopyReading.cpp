#include "KeelbrightCore/check/CopyReading.h"

#include "KeelbrightCore/check/CheckProgress.h"
#include "KeelbrightCore/platform/files/FileManager.h"

#include <cerrno>

namespace keelbright {

CopyReading readCopy(CopyReadAhead& pieces, const ItemStatus& status, ContentComparison* comparison,
                     Sha256& checksum, CheckProgress& progress, const Cancellation& cancellation)
{
    qint64 size = 0;
    for (;;) {
        if (cancellation.isCancelled())
            return {};
        CopyPiece piece = pieces.next();
        if (piece.kind == CopyPiece::Kind::end) {
            QByteArray digest = checksum.result(); // also begins with the next file
            return {.code = piece.code,
                    .endsEarly = piece.code == 0 && size < status.size,
                    .isFromDrive = piece.isFromDrive,
                    .digest = std::move(digest)};
        }
        if (comparison)
            comparison->compare(piece);
        if (piece.kind == CopyPiece::Kind::hole)
            checksum.addZeros(piece.size);
        else
            checksum.add(piece.buffer->data(), piece.size);
        if (piece.buffer)
            pieces.giveBack(std::move(piece.buffer));
        size = piece.offset + piece.size;
        progress.addBytes(piece.size);
    }
}

bool isMissing(int code)
{
    return code == ENOENT || code == ENOTDIR || code == ELOOP;
}

QList<FileURL> foldersOfCopies(const FileURL& personalFiles)
{
    QList<FileURL> folders{personalFiles};
    const auto entries = FileManager::defaultManager().contentsOfDirectory(
        personalFiles, DirectoryEnumerator::Option::keepsAccessTimes);
    // Where it can't be listed, the walk of it says so.
    for (const DirectoryEntry& entry : entries.value_or(QList<DirectoryEntry>())) {
        if (entry.type == EntryType::directory && entry.url.nativeLastPathComponent().startsWith('.'))
            folders.append(entry.url);
    }
    return folders;
}

TreeSum countCopies(const FileURL& personalFiles, Links links, const Cancellation& cancellation)
{
    const auto bytesOf = [links](DirectoryEnumerator& copy) -> std::optional<qint64> {
        if (copy.type() == EntryType::regularFile)
            return copy.fileSize().value_or(0);
        if (copy.type() == EntryType::symbolicLink && links == Links::counted)
            return 0;
        return std::nullopt;
    };
    TreeSum all;
    for (const TreeSum& sum : sumTrees(foldersOfCopies(personalFiles), walkOptions, bytesOf,
                                       FileManager::defaultManager(), cancellation)) {
        all.entries += sum.entries;
        all.bytes += sum.bytes;
    }
    return all;
}

} // namespace keelbright
