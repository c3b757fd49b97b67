#pragma once

#include "Keelbright/widgets/Button.h"

#include <QList>

class QAction;
class QMenu;

namespace keelbright {

/// A button that opens a menu in which one choice is marked.
class MenuButton : public Button
{
    Q_OBJECT

public:
    struct Choice
    {
        QString text;
        QString symbol = {};
        bool startsGroup = false; ///< a divider stands before it
    };

    /// As for `Button`; a button with words has a small arrow behind them.
    MenuButton(Kind kind, const QString& text, const QString& symbolKey, const QList<Choice>& choices,
               QWidget* parent = nullptr);

    /// From now on the caption is that of the marked choice; a screen reader is told the name and
    /// then the choice.
    void setShowsChoice(const QString& name);

    [[nodiscard]] QMenu* choiceMenu() const { return m_menu; }

    [[nodiscard]] int currentIndex() const { return m_currentIndex; }

    /// Without `chosen`.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// The user chose it, also the one that was marked already.
    void chosen(int index);

private:
    void paintSymbols();

    QList<Choice> m_choices;
    QMenu* m_menu;
    QString m_name;
    QList<QAction*> m_actions;
    int m_currentIndex = 0;
    bool m_showsChoice = false;
};

} // namespace keelbright
