#include "Keelbright/screens/dashboard/InsightGrid.h"

#include "Keelbright/screens/dashboard/InsightCard.h"
#include "Keelbright/screens/shared/CardGridLayout.h"
#include "Keelbright/state/AppState.h"

namespace keelbright {

InsightGrid::InsightGrid(AppState& state, QWidget* parent)
    : QWidget(parent)
    , m_state(state)
{
    auto* grid = new CardGridLayout(this);
    for (const Insight& insight : insights()) {
        auto* card = new InsightCard(insight, this);
        connect(card, &QAbstractButton::clicked, this,
                [this, screen = insight.screen] { m_state.setSelectedScreen(screen); });
        grid->addWidget(card);
        m_cards.append(card);
    }
}

QList<Insight> InsightGrid::insights() const
{
    return {
        Insights::storage(m_state.healthScore()),
        Insights::lastBackup(m_state.lastBackupTime(), m_state.lastReport().has_value(), m_state.now()),
        Insights::junk(m_state.healthScore()),
        Insights::apps(m_state.scannedApps(), m_state.isAppScanning()),
    };
}

void InsightGrid::redraw()
{
    const QList<Insight> current = insights();
    for (qsizetype i = 0; i < m_cards.size(); ++i)
        m_cards.at(i)->setInsight(current.at(i));
}

} // namespace keelbright
