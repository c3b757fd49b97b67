#pragma once

#include "Keelbright/screens/dashboard/Insight.h"
#include "Keelbright/widgets/CardButton.h"

namespace keelbright {

class NumberLabel;
class Label;
class Tile;

/// An insight as a card that can be clicked; its owner connects to `clicked`.
class InsightCard : public CardButton
{
    Q_OBJECT

public:
    explicit InsightCard(const Insight& insight, QWidget* parent = nullptr);

    void setInsight(const Insight& insight);

    [[nodiscard]] const Insight& insight() const { return m_insight; }

private:
    void showInsight(const Insight& insight);

    Insight m_insight;
    Tile* m_tile;
    Label* m_title;
    NumberLabel* m_value;
    Label* m_subtitle;
};

} // namespace keelbright
