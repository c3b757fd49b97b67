#include "Keelbright/widgets/StatusCard.h"

#include "Keelbright/widgets/ElidedLabel.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QVBoxLayout>

namespace keelbright {

StatusCard::StatusCard(const QString& title, const QString& value, const QString& icon, Role color,
                       QWidget* parent)
    : Card(parent)
    , m_title(title)
    , m_icon(new Tile(icon, color, Metrics::tile, this))
    , m_value(new NumberLabel({}, FontRole::number, Role::primaryText, this))
{
    content()->setSpacing(0);
    content()->addWidget(m_icon);
    content()->addSpacing(12);
    content()->addWidget(m_value);
    content()->addSpacing(2);
    content()->addWidget(
        new ElidedLabel(title, FontRole::secondary, Role::secondaryText, Qt::ElideRight, this));
    setValue(value);
}

void StatusCard::setValue(const QString& value)
{
    m_value->setText(value);
    setAccessibleName(tr("%1: %2").arg(m_title, value));
}

void StatusCard::setColorRole(Role color)
{
    m_icon->setColorRole(color);
}

QString StatusCard::value() const
{
    return m_value->text();
}

} // namespace keelbright
