#pragma once

#include "Keelbright/widgets/rows/RowLayout.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>

namespace keelbright::testing {

/// Reads a list and clicks in it as the user does.
class ListDriver
{
public:
    /// The list with this accessible name; fails the test if there is none.
    ListDriver(const QWidget& view, const QString& name)
    {
        for (auto* candidate : view.findChildren<RowListView*>()) {
            if (candidate->accessibleName() == name)
                m_list = candidate;
        }
        if (m_list == nullptr)
            throw std::runtime_error("no list " + name.toStdString());
    }

    explicit ListDriver(RowListView& list)
        : m_list(&list)
    {}

    [[nodiscard]] RowListView* view() const { return m_list; }

    [[nodiscard]] bool isShown() const { return m_list->isVisible(); }

    [[nodiscard]] int count() const { return m_list->rowModel()->rowCount(); }

    [[nodiscard]] ListRow row(int index) const { return m_list->rowModel()->rowAt(index); }

    /// The rows as a screen reader reads them.
    [[nodiscard]] QStringList texts() const
    {
        QStringList texts;
        for (int i = 0; i < count(); ++i)
            texts.append(m_list->rowModel()->accessibleText(i));
        return texts;
    }

    [[nodiscard]] QList<Qt::CheckState> marks() const
    {
        QList<Qt::CheckState> states;
        for (int i = 0; i < count(); ++i)
            states.append(row(i).markState);
        return states;
    }

    /// -1 if no row is selected.
    [[nodiscard]] int selectedRow() const
    {
        const QModelIndexList selected = m_list->selectionModel()->selectedIndexes();
        return selected.isEmpty() ? -1 : selected.first().row();
    }

    void clickMark(int index) const { click(layoutOf(index).mark.center()); }

    void clickTitle(int index, Qt::KeyboardModifiers modifiers = {}) const
    {
        click(layoutOf(index).title.center(), modifiers);
    }

    /// Clicks the row with the right button and gives the menu; null if none opens.
    [[nodiscard]] QMenu* openMenu(int index) const
    {
        m_list->scrollTo(m_list->rowModel()->index(index));
        const QPoint place = m_list->visualRect(m_list->rowModel()->index(index)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, m_list->viewport()->mapToGlobal(place));
        QApplication::sendEvent(m_list->viewport(), &event);
        return m_list->findChild<QMenu*>();
    }

    [[nodiscard]] static QStringList textsIn(const QMenu& menu)
    {
        QStringList texts;
        for (const QAction* action : entriesOf(menu))
            texts.append(action->text());
        return texts;
    }

    /// All but the lines between them.
    [[nodiscard]] static QList<QAction*> entriesOf(const QMenu& menu)
    {
        QList<QAction*> entries = menu.actions();
        entries.removeIf([](const QAction* action) { return action->isSeparator(); });
        return entries;
    }

    void clickAction(int index, qsizetype action = 0) const
    {
        click(layoutOf(index).actions.at(action).center());
    }

    /// Presses the row's button for this or, where it has none, the entry of its menu; false where
    /// the row does not offer it.
    bool press(int index, RowActionId action) const
    {
        if (!m_list->rowModel()->headerAt(index).isEmpty())
            return false;
        const auto indexIn = [action](const QList<RowAction>& offered) {
            return std::ranges::find(offered, action, &RowAction::id) - offered.begin();
        };
        const ListRow shown = row(index);
        if (const auto button = indexIn(shown.actions); button < shown.actions.size()) {
            clickAction(index, button);
            return true;
        }
        const auto entry = indexIn(shown.menuActions);
        if (entry == shown.menuActions.size())
            return false;
        const QPointer<QMenu> menu = openMenu(index);
        entriesOf(*menu).at(shown.actions.size() + entry)->trigger();
        delete menu;
        return true;
    }

private:
    [[nodiscard]] RowLayout layoutOf(int index) const
    {
        m_list->scrollTo(m_list->rowModel()->index(index));
        const QRect rect = m_list->visualRect(m_list->rowModel()->index(index));
        if (m_list->look() == RowListView::Look::table)
            return layOutRow(row(index), rect.adjusted(0, 0, 0, -1), m_list->padding());
        return layOutRow(row(index), rect.adjusted(RowMetrics::panelInset, 1, -RowMetrics::panelInset, -1),
                         RowMetrics::panelPadding);
    }

    void click(const QPoint& place, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::mouseClick(m_list->viewport(), Qt::LeftButton, modifiers, place);
    }

    RowListView* m_list = nullptr;
};

} // namespace keelbright::testing
