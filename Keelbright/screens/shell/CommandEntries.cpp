#include "Keelbright/screens/shell/CommandEntries.h"

#include <QMenu>

namespace keelbright {

CommandEntries::CommandEntries(QObject* parent)
    : QObject(parent)
{}

QAction* CommandEntries::add(QMenu& menu, ScreenCommand command)
{
    QAction* action = makeCommand(command, this);
    menu.addAction(action);
    m_entries.append({command, &menu, action, action});
    return action;
}

void CommandEntries::follow(const QWidget* screen)
{
    for (Entry& entry : m_entries) {
        QAction* offered = offeredCommand(screen, entry.command);
        QAction* next = offered != nullptr ? offered : entry.ofWindow;
        if (next == entry.shown)
            continue;
        // Taken out instead of hidden: its keys would be those of two actions.
        entry.menu->insertAction(entry.shown, next);
        entry.menu->removeAction(entry.shown);
        entry.shown = next;
    }
}

} // namespace keelbright
