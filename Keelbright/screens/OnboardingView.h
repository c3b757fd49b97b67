#pragma once

#include <QList>
#include <QString>
#include <QWidget>

namespace keelbright {

class AppState;
class Button;
class StepStack;

/// Fills the window until the user has passed it: a welcome, then the choice of a destination.
class OnboardingView : public QWidget
{
    Q_OBJECT

public:
    struct Feature
    {
        QString icon;
        QString title;
        QString body;
    };

    explicit OnboardingView(AppState& state, QWidget* parent = nullptr);

    [[nodiscard]] static const QList<Feature>& features();

    /// 0 is the welcome step, 1 the destination step.
    [[nodiscard]] int step() const { return m_step; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] static QWidget* makeWelcomeStep();
    [[nodiscard]] QWidget* makeDestinationStep();
    [[nodiscard]] QWidget* makeBottomRow();
    void setStep(int step);
    void goForward();
    void showDestination();

    AppState& m_state;
    int m_step = 0;
    Button* m_destination = nullptr;
    StepStack* m_steps;
    Button* m_back = nullptr;
    Button* m_main = nullptr;
};

} // namespace keelbright
