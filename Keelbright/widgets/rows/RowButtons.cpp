#include "Keelbright/widgets/rows/RowButtons.h"

#include "Keelbright/widgets/Button.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QSplitter>

namespace keelbright {

namespace {

bool isForTheList(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return true;
    default:
        return false;
    }
}

} // namespace

RowButtons::RowButtons(RowListView* view)
    : QWidget(view)
    , m_view(view)
{
    hide();
}

void RowButtons::makeButtons(const QList<RowAction>& actions)
{
    if (actions == m_actions)
        return;
    m_actions = actions;
    for (Button* button : std::exchange(m_buttons, {})) {
        // This may be called from within a click on that button.
        button->hide();
        button->deleteLater();
    }
    QWidget* before = m_view;
    for (const RowAction& action : actions) {
        const Button::Kind kind = action.symbol.isEmpty() ? Button::Kind::bordered : Button::Kind::plainIcon;
        auto* button = new Button(kind, action.name, action.symbol, this);
        button->setCompact(true);
        if (!action.symbol.isEmpty())
            button->setHue(action.hue);
        button->installEventFilter(this);
        connect(button, &QPushButton::clicked, this, [this, id = action.id] { Q_EMIT pressed(id); });
        button->show();
        setTabOrder(before, button);
        before = button;
        m_buttons.append(button);
    }
}

void RowButtons::show(const QList<RowAction>& actions, const QList<QRect>& rects)
{
    if (actions.isEmpty()) {
        hide();
        return;
    }
    moveBesideTheList();
    makeButtons(actions);
    QRect around;
    for (const QRect& rect : rects)
        around |= rect;
    // The part that is scrolled out of the list is cut off.
    const QRect shown = around & m_view->viewport()->rect();
    if (shown.isEmpty()) {
        hide();
        return;
    }
    setGeometry(QRect(m_view->viewport()->mapTo(parentWidget(), shown.topLeft()), shown.size()));
    for (qsizetype i = 0; i < m_buttons.size(); ++i)
        m_buttons.at(i)->setGeometry(rects.at(i).translated(-shown.topLeft()));
    raise();
    setVisible(true);
}

void RowButtons::moveBesideTheList()
{
    QWidget* host = m_view->parentWidget();
    // A splitter would make them one of its panels.
    if (host == nullptr || m_view->isWindow() || qobject_cast<QSplitter*>(host) != nullptr)
        host = m_view;
    if (parentWidget() != host)
        setParent(host);
}

bool RowButtons::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && isForTheList(static_cast<QKeyEvent*>(event)->key())) {
        m_view->setFocus(Qt::TabFocusReason);
        QCoreApplication::sendEvent(m_view, event);
        return true;
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        m_view->viewport()->update();
    return QWidget::eventFilter(watched, event);
}

} // namespace keelbright
