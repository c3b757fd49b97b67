#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class QMenu;
class QWidget;

namespace keelbright {

/// "Cut", "Copy", "Paste" and "Select All" in the menu bar. They act on the text or the list that has the
/// focus, or had it before the menu was opened, and are disabled where they would do nothing. From a list
/// they copy the texts of the current row.
class EditCommands : public QObject
{
    Q_OBJECT

public:
    /// Appends the entries, which go with the window.
    EditCommands(QMenu& menu, QWidget& window);

private:
    /// What can be done with the focused widget.
    struct Abilities
    {
        bool cut = false;
        bool copy = false;
        bool paste = false;
        bool selectAll = false;
    };

    [[nodiscard]] static Abilities abilitiesOf(const QWidget* widget);
    void followFocus(QWidget* focused);
    void watch(QWidget& focused);
    void update();
    void cut();
    void copy();
    void paste();
    void selectAll();

    QAction* m_cut;
    QAction* m_copy;
    QAction* m_paste;
    QAction* m_selectAll;
    QPointer<QWidget> m_focused;
    QList<QMetaObject::Connection> m_watched; ///< to what the focused widget announces
};

} // namespace keelbright
