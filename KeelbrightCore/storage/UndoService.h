#pragma once

#include "KeelbrightCore/storage/UndoableMoves.h"

#include <QString>
#include <atomic>

namespace keelbright {

class Cancellation;

/// Something that an undo could not move back.
struct UndoFailure
{
    FileURL origin; ///< where it would have gone
    QString reason; ///< a sentence

    friend bool operator==(const UndoFailure&, const UndoFailure&) = default;
};

struct UndoResult
{
    qint64 restored = 0;
    QList<UndoFailure> failures; ///< in the order in which they arose
    UndoableMoves remaining;     ///< of the same kind as what was undone; what was not tried before a cancel

    /// Whether items have come back from the Trash, and not from folders of the organizer.
    [[nodiscard]] bool isFromTrash() const { return std::holds_alternative<TrashedItems>(remaining); }

    /// Whether a removed application, or what it had left behind, has come back.
    [[nodiscard]] bool isOfRemoval() const
    {
        const auto* trashed = std::get_if<TrashedItems>(&remaining);
        return trashed != nullptr && trashed->isRemoval && restored > 0;
    }
};

/// How many items of an undo have been tried. Any thread.
struct UndoProgress
{
    std::atomic<qint64> tried = 0;
};

/// Takes back what one action has moved.
namespace UndoService {

/// Moves everything back to where it was, from the last to the first, and replaces nothing. A file that was
/// changed since goes back as it is now. A folder that is gone is made again; one that the organizer has made
/// is removed when it is empty. What can't go back stays where it is and is reported. Blocks; any thread.
/// Ends before the next item once it is cancelled, and may break off at any moment without any loss.
[[nodiscard]] UndoResult undo(UndoableMoves moves, UndoProgress& progress, const Cancellation& cancellation);

} // namespace UndoService
} // namespace keelbright
