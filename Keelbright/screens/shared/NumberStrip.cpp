#include "Keelbright/screens/shared/NumberStrip.h"

#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int iconSize = 15;

} // namespace

NumberStrip::NumberStrip(QWidget* parent)
    : Card(parent)
    , m_row(new QHBoxLayout)
{
    m_row->setSpacing(Metrics::cardPadding);
    content()->addLayout(m_row);
}

void NumberStrip::addCell(const QString& title, const QString& icon)
{
    if (!m_cells.isEmpty())
        m_row->addWidget(new Separator(Qt::Vertical, this));
    auto* cell = new QWidget(this);
    auto* column = new QVBoxLayout(cell);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    auto* name = new QHBoxLayout;
    name->setSpacing(6);
    name->addStretch();
    name->addWidget(new SymbolLabel(icon, iconSize, Role::secondaryText, cell));
    name->addWidget(new Label(title, FontRole::secondary, Role::secondaryText, cell));
    name->addStretch();
    auto* value = new NumberLabel({}, FontRole::number, Role::primaryText, cell);
    value->setAlignment(Qt::AlignCenter);
    column->addWidget(value);
    column->addLayout(name);
    m_row->addWidget(cell, 1);
    m_cells.append({title, cell, value});
}

void NumberStrip::setValue(qsizetype index, const QString& value)
{
    const Cell& cell = m_cells.at(index);
    if (cell.value->text() == value)
        return;
    cell.value->setText(value);
    cell.widget->setAccessibleName(tr("%1 %2").arg(cell.title, value));
}

} // namespace keelbright
