#pragma once

#include "Keelbright/widgets/Panels.h"
#include "Keelbright/widgets/rows/ItemRowModel.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QScrollBar>
#include <QUuid>
#include <algorithm>
#include <utility>

class QStackedLayout;

namespace keelbright {

class Button;

/// The right side of a screen that has groups at its left: the items of the group that is chosen there,
/// or what to do while none is.
class GroupItemsPanel : public Ground
{
    Q_OBJECT

protected:
    struct Texts
    {
        QString hint; ///< what to do while no group is chosen
        QString hintSymbol;
        QString toggle; ///< of the button for all items of the group
        QString list;   ///< the name of the list of items
    };

    GroupItemsPanel(const Texts& texts, QWidget* parent);

    [[nodiscard]] PanelHeader* header() const { return m_header; }

    [[nodiscard]] Button* toggle() const { return m_toggle; }

    [[nodiscard]] RowListView* list() const { return m_list; }

    /// Takes the widget over.
    void addBelowHeader(QWidget* widget);
    void showHint();

    /// Shows the items of the group with this id. What is left of the group that was shown before stays
    /// where the eye is; another group begins at its top.
    template <typename Item>
    void showItems(const QString& groupID, ItemRowModel<Item>& model, const QList<Item>& items)
    {
        showDetail();
        const bool isSameGroup = std::exchange(m_groupID, groupID) == groupID;
        const int place = isSameGroup ? m_list->verticalScrollBar()->value() : 0;
        const int current = isSameGroup ? m_list->currentRow() : -1;
        const QUuid currentID = current >= 0 ? model.itemAt(current).id : QUuid();
        if (!model.setItems(items)) {
            model.announceAllRows();
            return;
        }
        const int kept = model.rowOf(currentID);
        m_list->setCurrentRow(kept >= 0 ? kept : std::min(current, model.rowCount() - 1));
        m_list->doItemsLayout();
        m_list->verticalScrollBar()->setValue(place);
    }

private:
    void showDetail();

    PanelHeader* m_header;
    Button* m_toggle;
    RowListView* m_list; ///< below them, also for the Tab key
    QStackedLayout* m_states;
    QVBoxLayout* m_detail;
    std::optional<QString> m_groupID;
};

} // namespace keelbright
