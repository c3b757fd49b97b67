#include "Keelbright/widgets/MenuButton.h"

#include "Keelbright/widgets/theme/Symbol.h"
#include "Keelbright/widgets/theme/Theme.h"

#include <QActionGroup>
#include <QMenu>

namespace keelbright {

MenuButton::MenuButton(Kind kind, const QString& text, const QString& symbolKey, const QList<Choice>& choices,
                       QWidget* parent)
    : Button(kind, text, symbolKey, parent)
    , m_choices(choices)
    , m_menu(new QMenu(this))
{
    setShowsArrow(true);
    auto* group = new QActionGroup(m_menu);
    for (qsizetype i = 0; i < choices.size(); ++i) {
        const Choice& choice = choices.at(i);
        if (choice.startsGroup)
            m_menu->addSeparator();
        QAction* action = m_menu->addAction(QString(choice.text).replace(u'&', QStringLiteral("&&")));
        action->setCheckable(true);
        action->setChecked(i == 0);
        group->addAction(action);
        const int index = static_cast<int>(i);
        connect(action, &QAction::triggered, this, [this, index] {
            setCurrentIndex(index);
            Q_EMIT chosen(index);
        });
        m_actions.append(action);
    }
    // Not with QPushButton::setMenu, which makes the press wait until the menu is closed and so blocks
    // a screen reader.
    connect(this, &QPushButton::clicked, this,
            [this] { m_menu->popup(mapToGlobal(QPoint(0, height() + 2))); });
    connect(&Theme::instance(), &Theme::changed, this, &MenuButton::paintSymbols);
    paintSymbols();
}

void MenuButton::paintSymbols()
{
    for (qsizetype i = 0; i < m_actions.size(); ++i) {
        if (!m_choices.at(i).symbol.isEmpty())
            m_actions.at(i)->setIcon(
                Symbol::icon(m_choices.at(i).symbol, Theme::instance().color(Role::mutedText)));
    }
}

void MenuButton::setShowsChoice(const QString& name)
{
    m_name = name;
    m_showsChoice = true;
    setCurrentIndex(m_currentIndex);
}

void MenuButton::setCurrentIndex(int index)
{
    m_currentIndex = index;
    m_actions.at(index)->setChecked(true);
    if (!m_showsChoice)
        return;
    setCaption(m_choices.at(index).text);
    setAccessibleName(m_name);
    setAccessibleDescription(m_choices.at(index).text);
}

} // namespace keelbright
