#pragma once

#include "KeelbrightCore/storage/OrganizeProposal.h"
#include "KeelbrightCore/storage/UndoableMoves.h"

#include <QList>
#include <QSet>
#include <QStringList>

namespace keelbright {

/// Sorts the loose files of a folder into subfolders of that folder: first a plan, which changes
/// nothing, then the moves that were chosen from it. Nothing is deleted or replaced.
namespace OrganizerService {

struct ExecutionResult
{
    qint64 moved = 0;
    QStringList errors; ///< the name of the file, ": " and the reason, in the order of the moves

    friend bool operator==(const ExecutionResult&, const ExecutionResult&) = default;
};

/// One proposal for each category that the folder has loose files of, the largest total first.
/// Loose is everything but folders, and an application (a folder named ".app") too; hidden entries
/// are no part of a plan. Empty where the folder can't be listed. Blocks; any thread.
[[nodiscard]] QList<OrganizeProposal> propose(const FileURL& folder);

/// Moves the files whose ids are in `selected`, in the order of the plan. A name that is taken gets
/// a number, from 2 upwards. A failure is noted and leaves its file where it is; the others are
/// moved all the same. Adds to `done`, where it is given, what an undo needs. Blocks; any thread.
[[nodiscard]] ExecutionResult execute(const QList<OrganizeProposal>& proposals, const QSet<QUuid>& selected,
                                      OrganizedFiles* done = nullptr);

} // namespace OrganizerService
} // namespace keelbright
