#pragma once

#include "Keelbright/widgets/Card.h"

#include <QList>

class QHBoxLayout;

namespace keelbright {

class NumberLabel;

/// A card with a few numbers side by side: what each one is, with an icon, and its value. A
/// screen reader meets each as one thing ("Copied 12").
class NumberStrip : public Card
{
    Q_OBJECT

public:
    explicit NumberStrip(QWidget* parent = nullptr);

    /// To the right of those already there.
    void addNumber(const QString& title, const QString& icon);
    /// Numbers count from 0 in the order in which they were added.
    void setValue(qsizetype index, const QString& value);

private:
    struct Number
    {
        QString title;
        QWidget* cell;
        NumberLabel* value;
    };

    QHBoxLayout* m_row;
    QList<Number> m_numbers;
};

} // namespace keelbright
