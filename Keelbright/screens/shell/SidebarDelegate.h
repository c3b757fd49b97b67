#pragma once

#include <QStyledItemDelegate>

namespace keelbright {

/// Draws a row of the sidebar: a small header, or a screen with its symbol.
class SidebarDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace keelbright
