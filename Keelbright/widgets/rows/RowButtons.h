#pragma once

#include "Keelbright/widgets/rows/ListRow.h"

#include <QWidget>

namespace keelbright {

class Button;
class RowListView;

/// The real buttons of the current row of a `RowListView`, above the painted ones: what Tab and a
/// screen reader reach. They stand beside the list, not in it: to a screen reader a list holds rows
/// and nothing else.
class RowButtons : public QWidget
{
    Q_OBJECT

public:
    explicit RowButtons(RowListView* view);

    /// Stands at `rects`, one a button, in the coordinates of the viewport; nothing where empty.
    void show(const QList<RowAction>& actions, const QList<QRect>& rects);

Q_SIGNALS:
    void pressed(keelbright::RowActionId action);

protected:
    /// The arrows go on in the list.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void standBesideTheList();
    void makeButtons(const QList<RowAction>& actions);

    RowListView* m_view;
    QList<RowAction> m_actions;
    QList<Button*> m_buttons;
};

} // namespace keelbright
