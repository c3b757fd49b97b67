#include "Keelbright/screens/backup/FigureStrip.h"

#include "Keelbright/widgets/FigureLabel.h"
#include "Keelbright/widgets/Headers.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

namespace {

constexpr int iconSize = 15;

} // namespace

FigureStrip::FigureStrip(QWidget* parent)
    : Card(parent)
    , m_row(new QHBoxLayout)
{
    m_row->setSpacing(Metrics::cardPadding);
    content()->addLayout(m_row);
}

void FigureStrip::addFigure(const QString& title, const QString& icon)
{
    if (!m_figures.isEmpty())
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
    auto* value = new FigureLabel({}, FontRole::figure, Role::primaryText, cell);
    value->setAlignment(Qt::AlignCenter);
    column->addWidget(value);
    column->addLayout(name);
    m_row->addWidget(cell, 1);
    m_figures.append({title, cell, value});
}

void FigureStrip::setValue(qsizetype index, const QString& value)
{
    const Figure& figure = m_figures.at(index);
    if (figure.value->text() == value)
        return;
    figure.value->setText(value);
    figure.cell->setAccessibleName(tr("%1 %2").arg(figure.title, value));
}

} // namespace keelbright
