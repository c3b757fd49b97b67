#pragma once

#include <QAccessible>
#include <QStringList>

namespace keelbright::testing {

/// What the window has a screen reader say while it lives: the name of each object of the role
/// "notification" at the moment when it appears. One at a time.
class SpokenTexts
{
public:
    SpokenTexts()
        : m_before(QAccessible::installUpdateHandler(&SpokenTexts::hear))
    {
        heard().clear();
    }

    ~SpokenTexts() { QAccessible::installUpdateHandler(m_before); }

    SpokenTexts(const SpokenTexts&) = delete;
    SpokenTexts& operator=(const SpokenTexts&) = delete;

    [[nodiscard]] const QStringList& all() const { return heard(); }

    [[nodiscard]] QString last() const { return heard().isEmpty() ? QString() : heard().last(); }

    void clear() { heard().clear(); }

private:
    static QStringList& heard()
    {
        static QStringList texts;
        return texts;
    }

    static void hear(QAccessibleEvent* event)
    {
        if (event->type() != QAccessible::ObjectShow)
            return;
        const QAccessibleInterface* shown = event->accessibleInterface();
        if (shown != nullptr && shown->role() == QAccessible::Notification)
            heard().append(shown->text(QAccessible::Name));
    }

    QAccessible::UpdateHandler m_before;
};

} // namespace keelbright::testing
