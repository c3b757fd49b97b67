#include "Keelbright/screens/shared/ScreenCommand.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
#include <QWidget>

namespace keelbright {

namespace {

using namespace Qt::StringLiterals;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ScreenCommand)
};

/// By which the menu bar finds the action in the screen.
QString objectNameOf(ScreenCommand command)
{
    return u"screenCommand%1"_s.arg(static_cast<int>(command));
}

QString textOf(ScreenCommand command)
{
    switch (command) {
    case ScreenCommand::fullScan:
        return Texts::tr("&Full Scan");
    case ScreenCommand::exportList:
        return Texts::tr("&Export…");
    case ScreenCommand::find:
        return Texts::tr("&Find");
    case ScreenCommand::rescan:
        return Texts::tr("&Re-scan");
    }
    Q_UNREACHABLE();
}

QList<QKeySequence> keysOf(ScreenCommand command)
{
    switch (command) {
    case ScreenCommand::fullScan:
        return {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)};
    case ScreenCommand::exportList:
        return {QKeySequence(Qt::CTRL | Qt::Key_E)};
    case ScreenCommand::find:
        return {QKeySequence(Qt::CTRL | Qt::Key_F)};
    case ScreenCommand::rescan:
        return {QKeySequence(Qt::CTRL | Qt::Key_R), QKeySequence(Qt::Key_F5)};
    }
    Q_UNREACHABLE();
}

} // namespace

QAction* makeCommand(ScreenCommand command, QObject* parent)
{
    auto* action = new QAction(parent);
    offerCommand(*action, command);
    action->setAutoRepeat(false);
    action->setEnabled(false);
    return action;
}

QAction* offerCommand(QWidget& screen, ScreenCommand command, const std::function<void()>& perform)
{
    QAction* action = makeCommand(command, &screen);
    action->setEnabled(true);
    QObject::connect(action, &QAction::triggered, &screen, [perform] { perform(); });
    screen.addAction(action);
    return action;
}

void offerCommand(QAction& action, ScreenCommand command)
{
    action.setObjectName(objectNameOf(command));
    action.setText(textOf(command));
    action.setShortcuts(keysOf(command));
}

QAction* offeredCommand(const QWidget* screen, ScreenCommand command)
{
    return screen != nullptr ? screen->findChild<QAction*>(objectNameOf(command)) : nullptr;
}

} // namespace keelbright
