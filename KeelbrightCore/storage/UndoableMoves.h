#pragma once

#include "KeelbrightCore/platform/files/TrashedItem.h"

#include <QList>
#include <variant>

namespace keelbright {

/// A file, or an application, that the organizer has moved.
struct FileMove
{
    FileURL from;
    FileURL to;
    bool isFolder = false;

    friend bool operator==(const FileMove&, const FileMove&) = default;
};

/// What one run of the organizer has done.
struct OrganizedFiles
{
    QList<FileMove> moves;     ///< in their order
    QList<FileURL> newFolders; ///< made for the files

    friend bool operator==(const OrganizedFiles&, const OrganizedFiles&) = default;
};

/// What one action of the user has moved to the Trash.
struct TrashedItems
{
    QList<TrashedItem> items; ///< in the order of the moves
    bool isRemoval = false;   ///< of an application, with what it had left behind or without

    friend bool operator==(const TrashedItems&, const TrashedItems&) = default;
};

/// What one action has moved and an undo moves back.
using UndoableMoves = std::variant<OrganizedFiles, TrashedItems>;

[[nodiscard]] inline qsizetype countOf(const UndoableMoves& moves)
{
    const auto* organized = std::get_if<OrganizedFiles>(&moves);
    return organized != nullptr ? organized->moves.size() : std::get<TrashedItems>(moves).items.size();
}

} // namespace keelbright
