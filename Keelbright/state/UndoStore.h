#pragma once

#include "KeelbrightCore/platform/system/LatestTask.h"
#include "KeelbrightCore/storage/UndoService.h"

#include <QObject>
#include <memory>
#include <optional>

namespace keelbright {

/// What the user's last action has moved, and its undo in the background. Only the last action can be undone,
/// once, and only until the program ends. Main thread only. Destroying it ends an undo before its next item.
class UndoStore : public QObject
{
    Q_OBJECT

public:
    enum class Kind { organise, trash };

    using QObject::QObject;

    /// Takes the place of what was kept before. An action that has moved nothing is passed over.
    void remember(const keelbright::UndoableMoves& moves);

    /// What can be undone or is being undone; absent for nothing.
    [[nodiscard]] std::optional<Kind> kind() const;

    [[nodiscard]] bool canUndo() const { return m_moves.has_value() && !m_isUndoing; }

    [[nodiscard]] bool isUndoing() const { return m_isUndoing; }

    /// Whether the undo under way has been cancelled and has not ended yet.
    [[nodiscard]] bool isCancelling() const { return m_isCancelling; }

    /// How many items the undo under way has to try, and how many it has tried so far.
    [[nodiscard]] qint64 total() const { return m_total; }

    [[nodiscard]] qint64 tried() const { return m_progress ? m_progress->tried.load() : 0; }

    /// Begins to undo the last action. Does nothing where there is none, and while an undo is under way.
    void undo();
    /// Asks the undo under way to end after its present item; the rest can still be undone then.
    void cancel();

Q_SIGNALS:
    void changed();
    /// The undo has ended; follows `changed`.
    void ended(const keelbright::UndoResult& result);

private:
    void finish(const UndoResult& result);

    std::optional<UndoableMoves> m_moves;
    std::optional<Kind> m_kindUnderWay;
    bool m_isUndoing = false;
    bool m_isCancelling = false;
    qint64 m_total = 0;
    LatestTask m_task;
    std::shared_ptr<UndoProgress> m_progress;
};

} // namespace keelbright
