#pragma once

#include "Keelbright/widgets/Card.h"
#include "KeelbrightCore/health/HealthScore.h"

#include <array>
#include <optional>

namespace keelbright {

class BarProgress;
class Button;
class Label;
class NumberLabel;
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

    /// The widgets that show a score, and the one that holds them.
    struct Loaded
    {
        RingProgress* ring;
        Label* headline;
        Label* detail;
        std::array<Band, 3> bands;
        Button* recalculate;
        QWidget* whole;
    };

    [[nodiscard]] static QWidget* makeLoading();
    [[nodiscard]] static Loaded makeLoaded();
    void showScore(const HealthScore& score);

    std::optional<HealthScore> m_score;
    QWidget* m_loading;
    Loaded m_loaded;
};

} // namespace keelbright
