#include "Keelbright/widgets/StatusCard.h"

#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QVBoxLayout>

namespace keelbright {

StatusCard::StatusCard(const QString& title, const QString& value, const QString& icon, Role color,
                       QWidget* parent)
    : Card(parent)
{
    setAccessibleName(tr("%1: %2").arg(title, value));
    content()->setSpacing(0);
    content()->addWidget(new Tile(icon, color, Metrics::tile, this));
    content()->addSpacing(12);
    content()->addWidget(new NumberLabel(value, FontRole::number, Role::primaryText, this));
    content()->addSpacing(2);
    content()->addWidget(
        new ElidedLabel(title, FontRole::secondary, Role::secondaryText, Qt::ElideRight, this));
}

} // namespace keelbright
