#pragma once

#include "KeelbrightCore/storage/UndoService.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class QAction;
class QMenu;

namespace keelbright {

class UndoStore;
class UndoWindow;

/// The entry of the menu that undoes the user's last moves. An undo that takes its time shows how far it is,
/// and one that could not put everything back shows what is missing.
class UndoCommand : public QObject
{
    Q_OBJECT

public:
    /// The store outlives the window, and the window the command.
    UndoCommand(UndoStore& store, QMenu& menu, QWidget& window);

private:
    void start();
    void finish(const UndoResult& result);
    void updateAction();
    UndoWindow& openWindow();

    UndoStore& m_store;
    QWidget& m_window;
    QAction* m_action;
    QTimer m_patience; ///< before an undo is shown
    QPointer<UndoWindow> m_undoWindow;
};

} // namespace keelbright
