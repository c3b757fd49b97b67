#pragma once

#include "Keelbright/widgets/Card.h"

#include <QList>

class QHBoxLayout;

namespace keelbright {

class NumberLabel;

/// A card with a few cells side by side: an icon, a title and a number each. A screen reader reads
/// a cell as one text ("Copied 12").
class NumberStrip : public Card
{
    Q_OBJECT

public:
    explicit NumberStrip(QWidget* parent = nullptr);

    /// Adds a cell at the right, without a value.
    void addCell(const QString& title, const QString& icon);
    /// `index` counts from 0 in the order of the calls of `addCell`.
    void setValue(qsizetype index, const QString& value);

private:
    struct Cell
    {
        QString title;
        QWidget* widget;
        NumberLabel* value;
    };

    QHBoxLayout* m_row;
    QList<Cell> m_cells;
};

} // namespace keelbright
