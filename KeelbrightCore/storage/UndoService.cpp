#include "KeelbrightCore/storage/UndoService.h"

#include "KeelbrightCore/platform/files/FileManager.h"
#include "KeelbrightCore/platform/system/Cancellation.h"
#include "KeelbrightCore/platform/system/Logging.h"

#include <cerrno>
#include <new>
#include <tuple>
#include <utility>

namespace keelbright::UndoService {

namespace {

using Outcome = std::expected<void, FileError>;

const FileURL& originOf(const FileMove& move)
{
    return move.from;
}

const FileURL& originOf(const TrashedItem& item)
{
    return item.origin;
}

Outcome moveBack(const FileMove& move, FileManager& fm)
{
    const bool isFile = fm.fileSize(move.to).has_value();
    const bool isFolder = !isFile && fm.fileExists(move.to).isDirectory;
    if (move.isFolder ? isFile : isFolder) // something else has got the name since
        return failure(FileError::Operation::moved, move.to, ENOENT);
    if (isFile || isFolder) {
        if (auto made = fm.createDirectory(move.from.deletingLastPathComponent()); !made)
            return made;
    }
    return fm.moveItem(move.to, move.from);
}

/// Takes each item that was tried out of the list. From the last to the first: what was moved out of a folder
/// before the folder itself goes back into it.
template <typename Item, typename PutBack>
void putAllBack(QList<Item>& items, const PutBack& putBack, UndoResult& result, UndoProgress& progress,
                const Cancellation& cancellation)
try {
    while (!items.isEmpty() && !cancellation.isCancelled()) {
        if (const Outcome done = putBack(std::as_const(items).last()); done)
            ++result.restored;
        else
            result.failures.append(
                {originOf(std::as_const(items).last()), done.error().localizedDescription()});
        items.removeLast();
        ++progress.tried;
    }
} catch (const std::bad_alloc&) {
    // The rest can be undone when there is memory again.
    qCDebug(storageLog) << "not enough memory for the rest of the undo";
}

void removeEmptyFolders(const QList<FileURL>& folders, FileManager& fm)
{
    for (const FileURL& folder : folders)
        std::ignore = fm.removeEmptyFolder(folder); // it stays if something lies in it by now
}

} // namespace

UndoResult undo(UndoableMoves moves, UndoProgress& progress, const Cancellation& cancellation)
{
    FileManager& fm = FileManager::defaultManager();
    UndoResult result;
    if (auto* organized = std::get_if<OrganizedFiles>(&moves)) {
        const auto putBack = [&fm](const FileMove& move) { return moveBack(move, fm); };
        putAllBack(organized->moves, putBack, result, progress, cancellation);
        removeEmptyFolders(organized->newFolders, fm);
    } else if (auto* trashed = std::get_if<TrashedItems>(&moves)) {
        const auto putBack = [&fm](const TrashedItem& item) { return fm.restoreItem(item); };
        putAllBack(trashed->items, putBack, result, progress, cancellation);
    }
    result.remaining = std::move(moves);
    return result;
}

} // namespace keelbright::UndoService
