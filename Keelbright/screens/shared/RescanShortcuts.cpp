#include "Keelbright/screens/shared/RescanShortcuts.h"

#include <QShortcut>
#include <QWidget>

namespace keelbright {

void addRescanShortcuts(QWidget& screen, const std::function<void()>& rescan)
{
    for (const QKeySequence& keys : {QKeySequence(Qt::Key_F5), QKeySequence(Qt::CTRL | Qt::Key_R)}) {
        auto* shortcut = new QShortcut(keys, &screen);
        shortcut->setAutoRepeat(false);
        QObject::connect(shortcut, &QShortcut::activated, &screen, rescan);
    }
}

} // namespace keelbright
