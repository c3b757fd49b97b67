#include "Keelbright/state/UndoStore.h"

#include "Keelbright/state/Delivery.h"
#include "KeelbrightCore/platform/system/Logging.h"
#include "KeelbrightCore/platform/system/TaskPools.h"

#include <utility>

namespace keelbright {

namespace {

UndoStore::Kind kindOf(const UndoableMoves& moves)
{
    return std::holds_alternative<OrganizedFiles>(moves) ? UndoStore::Kind::organise : UndoStore::Kind::trash;
}

} // namespace

void UndoStore::remember(const UndoableMoves& moves)
{
    if (countOf(moves) == 0)
        return;
    m_moves = moves;
    Q_EMIT changed();
}

std::optional<UndoStore::Kind> UndoStore::kind() const
{
    if (m_isUndoing)
        return m_kindUnderWay;
    return m_moves ? std::optional(kindOf(*m_moves)) : std::nullopt;
}

void UndoStore::undo()
{
    if (m_isUndoing)
        return;
    std::optional<UndoableMoves> moves = std::exchange(m_moves, std::nullopt);
    if (!moves)
        return;
    m_isUndoing = true;
    m_kindUnderWay = kindOf(*moves);
    m_total = countOf(*moves);
    m_progress = std::make_shared<UndoProgress>();
    qCDebug(stateLog) << "undo of" << m_total << "moves";
    auto work = [moves = std::move(*moves), progress = m_progress, cancellation = m_task.begin()]() mutable {
        return UndoService::undo(std::move(moves), *progress, *cancellation);
    };
    deliver(TaskPools::runApart(TaskPools::Priority::userInitiated, std::move(work)), this,
            [this](const UndoResult& result) { finish(result); });
    Q_EMIT changed();
}

void UndoStore::cancel()
{
    if (!m_isUndoing || m_isCancelling)
        return;
    m_isCancelling = true;
    m_task.cancel();
    Q_EMIT changed();
}

void UndoStore::finish(const UndoResult& result)
{
    qCDebug(stateLog) << "undo ended:" << result.restored << "put back," << result.failures.size()
                      << "not put back," << countOf(result.remaining) << "not tried";
    m_isUndoing = false;
    m_isCancelling = false;
    m_progress.reset();
    // What the user has moved meanwhile comes first.
    if (!m_moves && countOf(result.remaining) > 0)
        m_moves = result.remaining;
    Q_EMIT changed();
    Q_EMIT ended(result);
}

} // namespace keelbright
