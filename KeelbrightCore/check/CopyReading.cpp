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

TreeSum countCopies(const FileURL& folder, Links links, const Cancellation& cancellation)
{
    const auto bytesOf = [links](DirectoryEnumerator& copy) -> std::optional<qint64> {
        if (copy.type() == EntryType::regularFile)
            return copy.fileSize().value_or(0);
        if (copy.type() == EntryType::symbolicLink && links == Links::counted)
            return 0;
        return std::nullopt;
    };
    return sumTrees({folder}, walkOptions, bytesOf, FileManager::defaultManager(), cancellation).value(0);
}

} // namespace keelbright
