#include "Keelbright/screens/shell/UndoCommand.h"

#include "Keelbright/screens/undo/UndoWindow.h"
#include "Keelbright/state/UndoTexts.h"
#include "Keelbright/widgets/Announcement.h"

#include <QAction>
#include <QMenu>

namespace keelbright {

namespace {

/// In milliseconds; most undos have ended by then.
constexpr int patience = 500;

} // namespace

UndoCommand::UndoCommand(UndoStore& store, QMenu& menu, QWidget& window)
    : QObject(&window)
    , m_store(store)
    , m_window(window)
    , m_action(menu.addAction({}, this, &UndoCommand::start))
{
    m_action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        if (m_store.isUndoing())
            openWindow();
    });
    connect(&store, &UndoStore::changed, this, &UndoCommand::updateAction);
    connect(&store, &UndoStore::ended, this, &UndoCommand::finish);
    updateAction();
}

void UndoCommand::start()
{
    m_store.undo();
    m_patience.start();
}

void UndoCommand::finish(const UndoResult& result)
{
    m_patience.stop();
    if (!result.failures.isEmpty() || countOf(result.remaining) > 0) {
        openWindow().showResult(result);
        return;
    }
    if (m_undoWindow)
        m_undoWindow->accept();
    say(m_window, UndoTexts::headline(result));
}

void UndoCommand::updateAction()
{
    m_action->setText(UndoTexts::action(m_store.kind()));
    m_action->setEnabled(m_store.canUndo());
}

UndoWindow& UndoCommand::openWindow()
{
    if (!m_undoWindow) {
        m_undoWindow = new UndoWindow(m_store, &m_window);
        m_undoWindow->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_undoWindow, &QDialog::finished, this, [this] { m_undoWindow.clear(); });
    }
    m_undoWindow->open();
    return *m_undoWindow;
}

} // namespace keelbright
