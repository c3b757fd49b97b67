#include "Keelbright/widgets/Announcement.h"

#include <QAccessibleWidget>
#include <QElapsedTimer>
#include <QWidget>

namespace keelbright {

namespace {

constexpr qint64 repeatMilliseconds = 1000;
/// A screen reader asks for the text of a notice a little after the notice has appeared.
constexpr qsizetype keptNotices = 4;

/// An announcement as an object of the role "notification", one for each. On Linux, Qt 6.4 reports to a
/// screen reader only what appears, changes its name or takes the focus, and Orca says a notification
/// that appears; `QAccessible::Alert` reaches nobody there.
class Notice : public QWidget
{
public:
    Notice(const QString& text, QWidget* window)
        : QWidget(window)
    {
        setAccessibleName(text);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        // It has to be visible to count as showing, and paints nothing.
        setGeometry(0, 0, 1, 1);
        m_sinceSaid.start();
    }

    [[nodiscard]] bool isRecent() const { return m_sinceSaid.elapsed() < repeatMilliseconds; }

private:
    QElapsedTimer m_sinceSaid;
};

QAccessibleInterface* makeAccessibleNotice(const QString&, QObject* object)
{
    auto* notice = dynamic_cast<Notice*>(object);
    return notice != nullptr ? new QAccessibleWidget(notice, QAccessible::Notification) : nullptr;
}

void installAccessibleNotice()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeAccessibleNotice);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

/// From the earliest to the latest.
QList<Notice*> noticesIn(const QWidget& window)
{
    QList<Notice*> notices;
    for (QObject* child : window.children()) {
        if (auto* notice = dynamic_cast<Notice*>(child))
            notices.append(notice);
    }
    return notices;
}

} // namespace

void say(const QWidget& place, const QString& text)
{
    QWidget* window = place.window();
    if (!window->isVisible() || text.isEmpty())
        return;
    installAccessibleNotice();
    const QList<Notice*> earlier = noticesIn(*window);
    if (!earlier.isEmpty() && earlier.last()->accessibleName() == text && earlier.last()->isRecent())
        return;
    for (qsizetype i = 0; i < earlier.size(); ++i) {
        earlier.at(i)->hide();
        // Later, because the window may be going through its children right now to show them.
        if (i + keptNotices <= earlier.size())
            earlier.at(i)->deleteLater();
    }
    auto* notice = new Notice(text, window);
    QAccessibleEvent created(notice, QAccessible::ObjectCreated);
    QAccessible::updateAccessibility(&created);
    notice->show();
}

void announce(QWidget& widget, const QString& text)
{
    widget.setAccessibleName(text);
    say(widget, text);
}

} // namespace keelbright
