#include "Keelbright/screens/dashboard/InsightCard.h"

#include "Keelbright/widgets/NumberLabel.h"
#include "Keelbright/widgets/SymbolLabel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace keelbright {

using namespace Qt::StringLiterals;

namespace {

constexpr int tileSide = 28;
constexpr int chevronSize = 16;
/// Wide enough that a card keeps its place in the grid when its number gets a digit more.
constexpr int minimumCardWidth = 190;

} // namespace

InsightCard::InsightCard(const Insight& insight, QWidget* parent)
    : CardButton(Frame::card, parent)
    , m_insight(insight)
    , m_tile(new Tile(insight.icon, insight.color, tileSide, this))
    , m_title(new Label({}, FontRole::bodyStrong, Role::secondaryText, this))
    , m_value(new NumberLabel({}, FontRole::number, Role::primaryText, this))
    , m_subtitle(new Label({}, FontRole::secondary, Role::secondaryText, this))
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Metrics::cardPadding, 14, Metrics::cardPadding, 14);
    column->setSpacing(0);
    auto* head = new QHBoxLayout;
    head->setSpacing(8);
    head->addWidget(m_tile);
    head->addWidget(m_title);
    head->addStretch();
    head->addWidget(new SymbolLabel(u"chevron.right"_s, chevronSize, Role::secondaryText, this));
    column->addLayout(head);
    column->addSpacing(11);
    column->addWidget(m_value);
    column->addSpacing(1);
    column->addWidget(m_subtitle);
    column->addStrut(minimumCardWidth - 2 * Metrics::cardPadding);
    showInsight(insight);
}

void InsightCard::setInsight(const Insight& insight)
{
    if (insight == m_insight)
        return;
    m_insight = insight;
    showInsight(insight);
}

void InsightCard::showInsight(const Insight& insight)
{
    m_tile->setKey(insight.icon);
    m_tile->setColorRole(insight.color);
    m_title->setText(insight.title);
    m_value->setText(insight.value);
    m_subtitle->setText(insight.subtitle);
    setAccessibleName(tr("%1: %2, %3").arg(insight.title, insight.value, insight.subtitle));
}

} // namespace keelbright
