#pragma once

#include "Keelbright/screens/dashboard/Insight.h"

#include <QWidget>

namespace keelbright {

class AppState;
class InsightCard;

/// The Dashboard's four numbers; a click on one opens its screen.
class InsightGrid : public QWidget
{
    Q_OBJECT

public:
    /// The state must outlive the grid.
    explicit InsightGrid(AppState& state, QWidget* parent = nullptr);

    /// Shows the current state.
    void redraw();

private:
    [[nodiscard]] QList<Insight> insights() const;

    AppState& m_state;
    QList<InsightCard*> m_cards;
};

} // namespace keelbright
