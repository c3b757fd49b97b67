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
        bool startsGroup = false; ///< a separator comes before it
    };

    /// As for `Button`; a text is followed by a small arrow.
    MenuButton(Kind kind, const QString& text, const QString& symbolKey, const QList<Choice>& choices,
               QWidget* parent = nullptr);

    /// Makes the marked choice the caption. A screen reader reads `name` and then the choice.
    void setShowsChoice(const QString& name);

    [[nodiscard]] QMenu* choiceMenu() const { return m_menu; }

    [[nodiscard]] int currentIndex() const { return m_currentIndex; }

    /// Does not emit `chosen`.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// The user chose this item, which may have been marked already.
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
