#pragma once

#include "Keelbright/screens/shared/ScreenCommand.h"

#include <QList>
#include <QObject>
#include <QPointer>

class QMenu;

namespace keelbright {

/// The entries of the menu bar for what the shown screen offers. While it offers a command, the entry is the
/// screen's own action; while it does not, an action of the window in its place, disabled unless the window
/// has an answer of its own.
class CommandEntries : public QObject
{
    Q_OBJECT

public:
    explicit CommandEntries(QObject* parent);

    /// Appends the entry; gives the action of the window.
    QAction* add(QMenu& menu, ScreenCommand command);

    /// To be called whenever another screen is shown, before the one before is destroyed; null for none.
    void follow(const QWidget* screen);

private:
    struct Entry
    {
        ScreenCommand command{};
        QMenu* menu = nullptr;
        QAction* ofWindow = nullptr;
        QPointer<QAction> shown;
    };

    QList<Entry> m_entries;
};

} // namespace keelbright
