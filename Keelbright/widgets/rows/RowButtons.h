#pragma once

#include "Keelbright/widgets/rows/ListRow.h"

#include <QWidget>

namespace keelbright {

class Button;
class RowListView;

/// The real buttons of the current row of a `RowListView`, above the painted ones, for Tab and for a
/// screen reader. They are siblings of the list, not its children, because to a screen reader the
/// children of a list are rows.
class RowButtons : public QWidget
{
    Q_OBJECT

public:
    explicit RowButtons(RowListView* view);

    /// One button for each action at its rectangle, in the coordinates of the viewport. Hides itself where
    /// there are none.
    void show(const QList<RowAction>& actions, const QList<QRect>& rects);

Q_SIGNALS:
    void pressed(keelbright::RowActionId action);

protected:
    /// Passes the arrow keys on to the list.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void moveBesideTheList();
    void makeButtons(const QList<RowAction>& actions);

    RowListView* m_view;
    QList<RowAction> m_actions;
    QList<Button*> m_buttons;
};

} // namespace keelbright
