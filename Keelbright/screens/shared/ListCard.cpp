#include "Keelbright/screens/shared/ListCard.h"

#include "Keelbright/widgets/Card.h"
#include "Keelbright/widgets/rows/RowLayout.h"
#include "Keelbright/widgets/rows/RowListView.h"

#include <QVBoxLayout>
#include <algorithm>

namespace keelbright {

namespace {

/// Keeps the rows away from the round corners.
constexpr int cornerRoom = 8;
/// Higher than any screen.
constexpr int manyRows = 1000;

} // namespace

QWidget* makeListCard(RowListView* list, QWidget* parent)
{
    auto* ground = new QWidget(parent);
    auto* column = new QVBoxLayout(ground);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* card = new Card(ground);
    card->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    card->content()->setContentsMargins(1, cornerRoom, 1, cornerRoom);
    card->content()->addWidget(list);
    list->setPadding(RowMetrics::paddingInCard);
    // The height that the rows do not need stays empty below the card.
    column->addWidget(card, 1000);
    column->addStretch(1);
    fitListCard(list);
    return ground;
}

void fitListCard(RowListView* list)
{
    const int rows = list->rowModel() != nullptr ? list->rowModel()->rowCount() : 0;
    int height = 0;
    for (int row = 0; row < std::min(rows, manyRows); ++row)
        height += list->rowModel()->headerAt(row).isEmpty() ? list->rowHeight() : RowMetrics::header;
    list->setMinimumHeight(std::min(height, 2 * list->rowHeight()));
    QWidget* card = list->parentWidget();
    card->setMaximumHeight(height + 2 * cornerRoom + Metrics::cardShadow);
    card->setVisible(rows > 0);
}

} // namespace keelbright
