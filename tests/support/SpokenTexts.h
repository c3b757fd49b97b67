#pragma once

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QStringList>
#include <QWidget>

namespace keelbright::testing {

/// What the program has a screen reader say while this lives: the name of each object of the role
/// "notification" at the moment when it appears. That this reaches the accessibility bus is tested in the
/// real window, as a program without a display reports nothing.
class SpokenTexts : public QObject
{
public:
    SpokenTexts() { qApp->installEventFilter(this); }

    [[nodiscard]] const QStringList& all() const { return m_texts; }

    [[nodiscard]] QString last() const { return m_texts.isEmpty() ? QString() : m_texts.last(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isShown = event->type() == QEvent::Show && watched->isWidgetType();
        const QAccessibleInterface* shown =
            isShown ? QAccessible::queryAccessibleInterface(watched) : nullptr;
        if (shown != nullptr && shown->role() == QAccessible::Notification)
            m_texts.append(shown->text(QAccessible::Name));
        return false;
    }

private:
    QStringList m_texts;
};

} // namespace keelbright::testing
