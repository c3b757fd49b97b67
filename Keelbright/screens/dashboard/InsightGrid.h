#pragma once

#include "Keelbright/screens/dashboard/Insight.h"

#include <QWidget>

namespace keelbright {

class AppState;
class InsightCard;

/// The Dashboard's four numbers; each leads to its screen.
class InsightGrid : public QWidget
{
    Q_OBJECT

public:
    /// The state outlives the grid.
    explicit InsightGrid(AppState& state, QWidget* parent = nullptr);

    /// Shows the state as it now is.
    void redraw();

private:
    [[nodiscard]] QList<Insight> insights() const;

    AppState& m_state;
    QList<InsightCard*> m_cards;
};

} // namespace keelbright
