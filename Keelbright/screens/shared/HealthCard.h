#pragma once

#include "Keelbright/widgets/Card.h"
#include "KeelbrightCore/health/HealthScore.h"

#include <array>
#include <optional>

namespace keelbright {

class BarProgress;
class NumberLabel;
class Label;
class RingProgress;

/// The health score: its number and grade, a sentence, and its three parts. Grey placeholders until it is
/// known.
class HealthCard : public Card
{
    Q_OBJECT

public:
    explicit HealthCard(QWidget* parent = nullptr);

    /// The colour of a grade.
    [[nodiscard]] static Role color(HealthScore::Grade grade);
    void setScore(const std::optional<HealthScore>& score);

Q_SIGNALS:
    void recalculateRequested();

private:
    struct Band
    {
        NumberLabel* label;
        BarProgress* bar;
    };

    [[nodiscard]] static QWidget* makeLoading();
    [[nodiscard]] QWidget* makeLoaded();
    void showScore(const HealthScore& score);

    std::optional<HealthScore> m_score;
    RingProgress* m_ring = nullptr;
    Label* m_headline = nullptr;
    Label* m_detail = nullptr;
    std::array<Band, 3> m_bands{};
    QWidget* m_loading;
    QWidget* m_loaded;
};

} // namespace keelbright
