#pragma once

#include "Keelbright/widgets/rows/RowLayout.h"

#include <QStyledItemDelegate>

namespace keelbright {

class RowListView;

/// Paints the rows of a `RowListView` and gives the places of their parts.
class RowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit RowDelegate(RowListView* view);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Both in the coordinates of the viewport.
    [[nodiscard]] RowLayout layoutOf(const QModelIndex& index, const ListRow& row) const;
    [[nodiscard]] RowLayout layoutIn(const QRect& rect, const ListRow& row) const;

    /// The title and the detail, each where its place is too narrow for all of it, as they are shown.
    [[nodiscard]] QStringList cutTexts(const QModelIndex& index, const ListRow& row) const;

    /// The action under the pointer is highlighted; -1 for none.
    void setHoveredAction(int row, qsizetype action);

private:
    void paintHeader(QPainter& painter, const QRect& rect, const QString& title) const;
    void paintGround(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintActions(QPainter& painter, const ListRow& row, const RowLayout& layout, int index) const;

    RowListView* m_view;
    int m_hoveredRow = -1;
    qsizetype m_hoveredAction = -1;
};

} // namespace keelbright
