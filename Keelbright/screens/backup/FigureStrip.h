#pragma once

#include "Keelbright/widgets/Card.h"

#include <QList>

class QHBoxLayout;

namespace keelbright {

class FigureLabel;

/// A card with a few figures side by side: what each one is, with an icon, and its value. A
/// screen reader meets each as one thing ("Copied 12").
class FigureStrip : public Card
{
    Q_OBJECT

public:
    explicit FigureStrip(QWidget* parent = nullptr);

    /// To the right of those already there.
    void addFigure(const QString& title, const QString& icon);
    /// Figures count from 0 in the order in which they were added.
    void setValue(qsizetype index, const QString& value);

private:
    struct Figure
    {
        QString title;
        QWidget* cell;
        FigureLabel* value;
    };

    QHBoxLayout* m_row;
    QList<Figure> m_figures;
};

} // namespace keelbright
